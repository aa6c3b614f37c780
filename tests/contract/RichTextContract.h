#pragma once

#include "platform/RichText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {

inline Bytes bytesOf(const std::string& text) {
  return {text.begin(), text.end()};
}

/// Every desktop's rich text. `World` has `richText()` and `addRtf(data, words)`, which a desktop
/// that reads the data itself may ignore.
template <class World> class RichTextContract : public ::testing::Test {
protected:
  RichText& richText() { return world.richText(); }
  World world;
};

TYPED_TEST_SUITE_P(RichTextContract);

TYPED_TEST_P(RichTextContract, TheWordsStandWithoutTheirAttributes) {
  const Bytes rtf = bytesOf("{\\rtf1\\ansi{\\fonttbl\\f0 Helvetica;}\\b Caf\\'e9\\b0  bar}");
  this->world.addRtf(rtf, "Caf\u00E9 bar");
  EXPECT_EQ(this->richText().plainTextOfRtf(rtf), "Caf\u00E9 bar");
}

TYPED_TEST_P(RichTextContract, ADocumentMayHaveNoWords) {
  const Bytes rtf = bytesOf("{\\rtf1}");
  this->world.addRtf(rtf, "");
  EXPECT_EQ(this->richText().plainTextOfRtf(rtf), "");
}

TYPED_TEST_P(RichTextContract, WhatIsNoRichTextHasNoWords) {
  for (const std::string& junk : {std::string(), std::string("plain"), std::string(9, '\0')}) {
    EXPECT_EQ(this->richText().plainTextOfRtf(bytesOf(junk)), std::nullopt) << junk;
    EXPECT_EQ(this->richText().plainTextOfRtfd(bytesOf(junk)), std::nullopt) << junk;
  }
}

REGISTER_TYPED_TEST_SUITE_P(RichTextContract, TheWordsStandWithoutTheirAttributes,
                            ADocumentMayHaveNoWords, WhatIsNoRichTextHasNoWords);

} // namespace tavrel
