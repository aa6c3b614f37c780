#pragma once

#include "platform/Pasteboards.h"
#include "platform/Services.h"

#include <gtest/gtest.h>

#include <string>

namespace tavrel {

/// Every desktop's services. `World` has `services()` and `pasteboard()`, and the services
/// "reverse" (turns a text round), "silent" (ends well and answers nothing), "failing" (answers
/// something and fails) and "names" (answers the file names it gets, a line each).
template <class World> class ServicesContract : public ::testing::Test {
protected:
  void hold(const std::string& text) {
    board.declareTypes({pasteboardType::html, pasteboardType::string});
    board.setString(text, pasteboardType::string);
    before = board.changeCount();
  }
  bool perform(const std::string& name) { return world.services().performService(name, board); }
  [[nodiscard]] std::string text() {
    return board.string(pasteboardType::string).value_or("(none)");
  }
  [[nodiscard]] bool isUntouched() {
    return board.changeCount() == before && board.types().size() == 2;
  }

  World world;
  Pasteboard& board = world.pasteboard();
  std::int64_t before = 0;
};

TYPED_TEST_SUITE_P(ServicesContract);

TYPED_TEST_P(ServicesContract, TheResultTakesThePlaceOfWhatThePasteboardHeld) {
  this->hold("abc");
  EXPECT_TRUE(this->perform("reverse"));
  EXPECT_EQ(this->text(), "cba");
  EXPECT_EQ(this->board.types(), std::vector<std::string>{pasteboardType::string});
  EXPECT_GT(this->board.changeCount(), this->before);
}

TYPED_TEST_P(ServicesContract, AServiceThatAnswersNothingLeavesThePasteboard) {
  this->hold("abc");
  EXPECT_TRUE(this->perform("silent"));
  EXPECT_EQ(this->text(), "abc");
  EXPECT_TRUE(this->isUntouched());
}

TYPED_TEST_P(ServicesContract, AServiceThatFailsLeavesThePasteboard) {
  this->hold("abc");
  EXPECT_FALSE(this->perform("failing"));
  EXPECT_EQ(this->text(), "abc");
  EXPECT_TRUE(this->isUntouched());
}

TYPED_TEST_P(ServicesContract, AnUnknownServiceFails) {
  this->hold("abc");
  for (const char* name : {"unknown", "", "../reverse", "Reverse"})
    EXPECT_FALSE(this->perform(name)) << name;
  EXPECT_TRUE(this->isUntouched());
}

TYPED_TEST_P(ServicesContract, FilesAreHandedOver) {
  for (const char* type : {pasteboardType::filenames, pasteboardType::pathFinderFilenames}) {
    this->board.declareTypes({type});
    this->board.setPropertyList(PropertyList::Array{"/a b", "/ü"}, type);
    EXPECT_TRUE(this->perform("names"));
    EXPECT_EQ(this->text(), "/a b\n/ü\n") << type;
  }
}

TYPED_TEST_P(ServicesContract, AnEmptyPasteboardIsAnEmptyText) {
  this->board.declareTypes({});
  EXPECT_TRUE(this->perform("reverse"));
  EXPECT_TRUE(this->board.types().empty());
}

REGISTER_TYPED_TEST_SUITE_P(ServicesContract, TheResultTakesThePlaceOfWhatThePasteboardHeld,
                            AServiceThatAnswersNothingLeavesThePasteboard,
                            AServiceThatFailsLeavesThePasteboard, AnUnknownServiceFails,
                            FilesAreHandedOver, AnEmptyPasteboardIsAnEmptyText);

} // namespace tavrel
