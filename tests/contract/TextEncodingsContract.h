#pragma once

#include "platform/TextEncodings.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

namespace tavrel {

/// Every desktop's encodings. `World` has `textEncodings()`, which know at least UTF-8, ASCII,
/// Latin 1 and Mac OS Roman.
template <class World> class TextEncodingsContract : public ::testing::Test {
protected:
  static constexpr StringEncoding ascii = 1;
  static constexpr StringEncoding utf8 = 4;
  static constexpr StringEncoding latin1 = 5;
  static constexpr StringEncoding macRoman = 30;

  TextEncodings& encodings() { return world.textEncodings(); }

  /// Those that the platform lists, without the end of the list.
  std::vector<StringEncoding> listed() {
    std::vector<StringEncoding> numbers = encodings().available();
    numbers.pop_back();
    return numbers;
  }

  std::string written(std::string_view text, StringEncoding encoding) {
    const auto data = encodings().lossyData(text, encoding);
    return data ? std::string(data->begin(), data->end()) : "(none)";
  }

  World world;
};

TYPED_TEST_SUITE_P(TextEncodingsContract);

TYPED_TEST_P(TextEncodingsContract, TheListEndsWithItsTerminatorAndHasNoOther) {
  const auto list = this->encodings().available();
  ASSERT_FALSE(list.empty());
  EXPECT_EQ(std::ranges::find(list, invalidEncoding) + 1, list.end());
}

TYPED_TEST_P(TextEncodingsContract, TheFourThatEverybodyKnowsAreListed) {
  const std::vector<std::pair<std::string, StringEncoding>> known{
      {"Unicode (UTF-8)", this->utf8},
      {"Western (ASCII)", this->ascii},
      {"Western (ISO Latin 1)", this->latin1},
      {"Western (Mac OS Roman)", this->macRoman}};
  std::vector<std::pair<std::string, StringEncoding>> found;
  for (const StringEncoding each : this->listed())
    found.emplace_back(this->encodings().nameOf(each).value_or(""),
                       this->encodings().frameworkEncoding(each));
  EXPECT_THAT(found, ::testing::IsSupersetOf(known));
}

TYPED_TEST_P(TextEncodingsContract, EachHasANameAndANumberOfItsOwn) {
  std::set<std::string> names;
  std::set<StringEncoding> numbers;
  for (const StringEncoding each : this->listed()) {
    EXPECT_TRUE(names.insert(this->encodings().nameOf(each).value_or("")).second) << each;
    EXPECT_TRUE(numbers.insert(this->encodings().frameworkEncoding(each)).second) << each;
  }
  EXPECT_FALSE(names.contains(""));
  EXPECT_FALSE(numbers.contains(invalidEncoding));
}

TYPED_TEST_P(TextEncodingsContract, ANumberThatIsNotListedHasNothing) {
  for (const StringEncoding each : {StringEncoding{0xFFFE}, invalidEncoding}) {
    EXPECT_EQ(this->encodings().nameOf(each), std::nullopt);
    EXPECT_EQ(this->encodings().frameworkEncoding(each), invalidEncoding);
    EXPECT_EQ(this->encodings().lossyData("a", each), std::nullopt);
  }
}

TYPED_TEST_P(TextEncodingsContract, TextsOfNothingAndOfLettersComeOutAsTheyAre) {
  for (const StringEncoding each : {this->ascii, this->utf8, this->latin1, this->macRoman}) {
    EXPECT_EQ(this->written("", each), "");
    EXPECT_EQ(this->written("a b~", each), "a b~");
    EXPECT_EQ(this->written(std::string_view("a\0\x7F", 3), each), std::string("a\0\x7F", 3));
  }
}

TYPED_TEST_P(TextEncodingsContract, AsciiSpellsWhatItDoesNotHave) {
  EXPECT_EQ(this->written("ÁÆ©…½ß€😀", this->ascii), "AAE(C)...1/2s??");
}

TYPED_TEST_P(TextEncodingsContract, Latin1PutsAQuestionMarkForEachUnit) {
  EXPECT_EQ(this->written("é€😀", this->latin1), "\xE9???");
}

TYPED_TEST_P(TextEncodingsContract, MacRomanPutsOneForACharacter) {
  EXPECT_EQ(this->written("é€😀中", this->macRoman), "\x8E\xDB??");
}

TYPED_TEST_P(TextEncodingsContract, WhatIsNoUtf8CountsAsTheReplacementCharacter) {
  EXPECT_EQ(this->written("a\xFFz\xC3", this->utf8), "a\uFFFDz\uFFFD");
  EXPECT_EQ(this->written("a\xFFz\xC3", this->ascii), "a?z?");
  EXPECT_EQ(this->written("\xED\xA0\x80", this->macRoman), "???");
}

TYPED_TEST_P(TextEncodingsContract, AVeryLongTextComesOutWhole) {
  constexpr std::size_t length = 5'000'000;
  std::string text;
  std::string expected;
  for (std::size_t i = 0; i < length / 5; ++i) {
    text.append("é😀a");
    expected.append("e?a");
  }
  EXPECT_TRUE(this->written(text, this->ascii) == expected);
  EXPECT_TRUE(this->written(text, this->utf8) == text);
}

REGISTER_TYPED_TEST_SUITE_P(TextEncodingsContract, TheListEndsWithItsTerminatorAndHasNoOther,
                            TheFourThatEverybodyKnowsAreListed, EachHasANameAndANumberOfItsOwn,
                            ANumberThatIsNotListedHasNothing,
                            TextsOfNothingAndOfLettersComeOutAsTheyAre,
                            AsciiSpellsWhatItDoesNotHave, Latin1PutsAQuestionMarkForEachUnit,
                            MacRomanPutsOneForACharacter,
                            WhatIsNoUtf8CountsAsTheReplacementCharacter,
                            AVeryLongTextComesOutWhole);

} // namespace tavrel
