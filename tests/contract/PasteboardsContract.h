#pragma once

#include "platform/Pasteboards.h"

#include <gtest/gtest.h>

namespace tavrel {

/// What every desktop's pasteboards do. A World has `pasteboards()`.
template <class World> class PasteboardsContract : public ::testing::Test {
protected:
  World world;
  Pasteboard& board = world.pasteboards().named("board");
};

TYPED_TEST_SUITE_P(PasteboardsContract);

TYPED_TEST_P(PasteboardsContract, ANameKeepsItsOwnContents) {
  this->board.declareTypes({"a"});
  ASSERT_TRUE(this->board.setString("text", "a"));
  EXPECT_EQ(&this->world.pasteboards().named("board"), &this->board);
  EXPECT_TRUE(this->world.pasteboards().named("other").types().empty());
  EXPECT_EQ(this->board.string("a"), "text");
}

TYPED_TEST_P(PasteboardsContract, DeclaringReplacesEverythingAndMovesTheCount) {
  this->board.declareTypes({"b", "a"});
  ASSERT_TRUE(this->board.setString("text", "a"));
  const auto before = this->board.changeCount();
  this->board.declareTypes({"c", "a"});
  EXPECT_EQ(this->board.types(), (std::vector<std::string>{"c", "a"}));
  EXPECT_FALSE(this->board.data("a"));
  EXPECT_GT(this->board.changeCount(), before);
}

TYPED_TEST_P(PasteboardsContract, DataNeedsADeclaredTypeAndLeavesTheCount) {
  this->board.declareTypes({"a"});
  const auto before = this->board.changeCount();
  EXPECT_TRUE(this->board.setData({0, 255}, "a"));
  EXPECT_FALSE(this->board.setData({1}, "b"));
  EXPECT_EQ(this->board.data("a"), (Bytes{0, 255}));
  EXPECT_FALSE(this->board.data("b"));
  EXPECT_EQ(this->board.changeCount(), before);
}

TYPED_TEST_P(PasteboardsContract, StringsAndListsComeBack) {
  this->board.declareTypes({"a", "b"});
  const PropertyList list(PropertyList::Array{"x", true, 1});
  ASSERT_TRUE(this->board.setString("Grüße", "a"));
  ASSERT_TRUE(this->board.setPropertyList(list, "b"));
  const std::string text = "Grüße";
  EXPECT_EQ(this->board.data("a"), Bytes(text.begin(), text.end()));
  EXPECT_TRUE(this->board.propertyList("b") == list);
  EXPECT_FALSE(this->board.propertyList("a"));
}

REGISTER_TYPED_TEST_SUITE_P(PasteboardsContract, ANameKeepsItsOwnContents,
                            DeclaringReplacesEverythingAndMovesTheCount,
                            DataNeedsADeclaredTypeAndLeavesTheCount, StringsAndListsComeBack);

} // namespace tavrel
