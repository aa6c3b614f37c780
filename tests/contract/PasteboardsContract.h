#pragma once

#include "platform/Pasteboards.h"

#include <gtest/gtest.h>

namespace tavrel {

/// What every desktop's pasteboards do. A World has `pasteboards()` and `copyElsewhere(text)`:
/// another program copies that text, and it has been noticed.
template <class World> class PasteboardsContract : public ::testing::Test {
protected:
  World world;
  Pasteboard& board = world.pasteboards().named("board");
  Pasteboard& general = world.pasteboards().general();

  static void copy(Pasteboard& from, Pasteboard& to) {
    const auto types = from.types();
    to.declareTypes(types);
    for (const std::string& type : types)
      if (auto data = from.data(type))
        to.setData(*std::move(data), type);
  }
  static void put(const std::string& text, Pasteboard& to) {
    to.declareTypes({pasteboardType::string});
    to.setString(text, pasteboardType::string);
  }
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

TYPED_TEST_P(PasteboardsContract, TheGeneralPasteboardHoldsWhatWasPutThere) {
  for (const std::string text : {"one", "", "two"}) {
    const auto before = this->general.changeCount();
    this->put(text, this->general);
    EXPECT_EQ(this->general.types(), std::vector<std::string>{pasteboardType::string});
    EXPECT_EQ(this->general.string(pasteboardType::string), text);
    EXPECT_FALSE(this->general.setString("x", pasteboardType::html)) << "was not declared";
    EXPECT_GT(this->general.changeCount(), before);
  }
  this->general.declareTypes({});
  EXPECT_TRUE(this->general.types().empty());
}

TYPED_TEST_P(PasteboardsContract, WhatAnotherProgramCopiesIsReadAndCounted) {
  for (const std::string text : {"one", "one", "two"}) {
    const auto before = this->general.changeCount();
    this->world.copyElsewhere(text);
    EXPECT_GT(this->general.changeCount(), before);
    EXPECT_EQ(this->general.string(pasteboardType::string), text);
  }
}

TYPED_TEST_P(PasteboardsContract, ReadingTheGeneralPasteboardLeavesTheCount) {
  this->world.copyElsewhere("text");
  const auto before = this->general.changeCount();
  this->copy(this->general, this->board);
  EXPECT_EQ(this->general.changeCount(), before);
}

TYPED_TEST_P(PasteboardsContract, ASavedGeneralPasteboardComesBack) {
  this->world.copyElsewhere("saved");
  this->copy(this->general, this->board);
  const auto types = this->general.types();
  this->put("", this->general);
  EXPECT_EQ(this->general.string(pasteboardType::string), "");
  this->world.copyElsewhere("other");
  this->put("", this->general);
  this->copy(this->board, this->general);
  EXPECT_EQ(this->general.types(), types);
  EXPECT_EQ(this->general.string(pasteboardType::string), "saved");
}

REGISTER_TYPED_TEST_SUITE_P(PasteboardsContract, ANameKeepsItsOwnContents,
                            DeclaringReplacesEverythingAndMovesTheCount,
                            DataNeedsADeclaredTypeAndLeavesTheCount, StringsAndListsComeBack,
                            TheGeneralPasteboardHoldsWhatWasPutThere,
                            WhatAnotherProgramCopiesIsReadAndCounted,
                            ReadingTheGeneralPasteboardLeavesTheCount,
                            ASavedGeneralPasteboardComesBack);

} // namespace tavrel
