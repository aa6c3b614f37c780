#include "base/LetterCase.h"

#include <gtest/gtest.h>

#include <string_view>

namespace tavrel {
namespace {

constexpr std::u16string_view capitals = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                         u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ"
                                         u"ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩΪΫ"
                                         u"ЀЁЂЃЄЅІЇЈЉЊЋЌЍЎЏ"
                                         u"АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯ";
constexpr std::u16string_view smallLetters = u"abcdefghijklmnopqrstuvwxyz"
                                             u"àáâãäåæçèéêëìíîïðñòóôõöøùúûüýþ"
                                             u"αβγδεζηθικλμνξοπρστυφχψωϊϋ"
                                             u"ѐёђѓєѕіїјљњћќѝўџ"
                                             u"абвгдежзийклмнопрстуфхцчшщъыьэюя";
constexpr std::u16string_view caseless = u"@[`{0 ×÷ß¿ÿΐ\u03A2ςάΰόϐϿѠѡ漢\uFFFF";

TEST(LetterCase, EveryCapitalHasItsSmallLetter) {
  ASSERT_EQ(capitals.size(), smallLetters.size());
  for (std::size_t i = 0; i < capitals.size(); ++i) {
    EXPECT_EQ(lowerCase(capitals[i]), smallLetters[i]) << "letter " << i;
    EXPECT_EQ(upperCase(smallLetters[i]), capitals[i]) << "letter " << i;
  }
}

TEST(LetterCase, ALetterOfThatCaseStaysAsItIs) {
  for (const char16_t capital : capitals)
    EXPECT_EQ(upperCase(capital), capital);
  for (const char16_t letter : smallLetters)
    EXPECT_EQ(lowerCase(letter), letter);
}

TEST(LetterCase, WhatStandsBesideTheLettersHasNoCase) {
  for (const char16_t character : caseless) {
    EXPECT_EQ(upperCase(character), character) << std::uint32_t{character};
    EXPECT_EQ(lowerCase(character), character) << std::uint32_t{character};
  }
}

} // namespace
} // namespace tavrel
