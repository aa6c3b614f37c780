#include "base/PercentEscapes.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(PercentEscapes, AreDecodedInEitherCase) {
  EXPECT_EQ(percentDecoded("a%20b%c3%A9"), "a b\xC3\xA9");
}

TEST(PercentEscapes, MayStandForAnyByte) {
  EXPECT_EQ(percentDecoded("%00%FF"), std::string("\0\xFF", 2));
}

TEST(PercentEscapes, BrokenOnesStayAsTheyAre) {
  for (const char* text : {"%", "%2", "a%", "%zz", "%2g", "%%41x", "100%"})
    EXPECT_EQ(percentDecoded(text), text == std::string("%%41x") ? "%Ax" : text);
}

TEST(PercentEscapes, AreDecodedOnce) {
  EXPECT_EQ(percentDecoded("%2541"), "%41");
}

TEST(PercentEscapes, AnEscapeIsAPercentSignAndTwoDigits) {
  EXPECT_TRUE(startsWithEscape("%4a"));
  EXPECT_TRUE(startsWithEscape("%F0 and more"));
  for (const char* text : {"", "%", "%4", "%4x", "%x4", "4a%"})
    EXPECT_FALSE(startsWithEscape(text)) << text;
}

} // namespace
} // namespace tavrel
