#include "menu/NumericOrder.h"

#include "base/Utf8.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <variant>

namespace tavrel {
namespace {

using ::testing::ElementsAre;

int compared(const char16_t* a, const char16_t* b) {
  return compareNumerically(std::u16string(a), std::u16string(b));
}

TEST(NumericOrder, NumbersCount) {
  EXPECT_EQ(compared(u"file2", u"file10"), -1);
  EXPECT_EQ(compared(u"file10", u"file2"), 1);
  EXPECT_EQ(compared(u"1.10.2", u"1.9.3"), 1);
  EXPECT_EQ(compared(u"9", u"10"), -1);
}

TEST(NumericOrder, LeadingZerosCountForNothing) {
  EXPECT_EQ(compared(u"file007", u"file7"), 0);
  EXPECT_EQ(compared(u"007a", u"7b"), -1);
  EXPECT_EQ(compared(u"007b1", u"7b01"), 0);
  EXPECT_EQ(compared(u"000", u"0"), 0);
}

TEST(NumericOrder, CapitalsComeBeforeSmallLettersAndDigitsBeforeBoth) {
  EXPECT_EQ(compared(u"File", u"file"), -1);
  EXPECT_EQ(compared(u"B", u"a"), -1);
  EXPECT_EQ(compared(u"9", u"A"), -1);
  EXPECT_EQ(compared(u"a9", u"aA"), -1);
  EXPECT_EQ(compared(u"!", u"9"), -1) << "but not before what stands before them";
}

TEST(NumericOrder, WhatEndsFirstComesFirst) {
  EXPECT_EQ(compared(u"", u""), 0);
  EXPECT_EQ(compared(u"", u"a"), -1);
  EXPECT_EQ(compared(u"a", u"ab"), -1);
  EXPECT_EQ(compared(u"7", u"007a"), -1);
  EXPECT_EQ(compared(u"007", u"7a"), -1) << "however long its digits are";
}

TEST(NumericOrder, OtherDigitsAreLetters) {
  EXPECT_EQ(compared(u"٣", u"٢٠"), 1) << "Arabic three and twenty";
  EXPECT_EQ(compared(u"３", u"２０"), 1) << "of full width";
  EXPECT_EQ(compared(u"²", u"10"), 1);
}

TEST(NumericOrder, NumbersBeyondSixtyFourBitsWrapAround) {
  EXPECT_EQ(compared(u"18446744073709551616", u"0"), 0) << "two to the power of 64";
  EXPECT_EQ(compared(u"18446744073709551617", u"2"), -1);
  EXPECT_EQ(compared(u"18446744073709551615", u"18446744073709551616"), 1);
  EXPECT_EQ(compared(u"99999999999999999999", u"7766279631452241919"), 0);
}

TEST(NumericOrder, CharactersBeyondTheBasicPlaneGoByTheirUnits) {
  EXPECT_EQ(compared(u"\xFFFD", u"\xD83D\xDE00"), 1) << "by code points it would be the reverse";
  EXPECT_EQ(compared(u"\xD83D", u"\xD83D\xDE00"), -1) << "half a character";
}

TEST(NumericOrder, ATextIsEqualToItselfWhateverTheStarts) {
  const std::u16string text = u"a1";
  const auto never = [](const std::u16string&, std::size_t) -> char16_t {
    ADD_FAILURE() << "nothing needs to be read";
    return 0;
  };
  EXPECT_EQ(compareNumerically(text, text, 0, 1, never, never), 0);
}

TEST(NumericOrder, EachTextIsReadFromItsStartThroughItsAccessor) {
  const std::u16string a = u"xx7";
  const std::u16string b = u"y8";
  const auto plain = [](const std::u16string& text, std::size_t i) { return text[i]; };
  const auto oneLess = [](const std::u16string& text, std::size_t i) {
    return static_cast<char16_t>(text[i] - 1);
  };
  EXPECT_EQ(compareNumerically(a, b, 2, 1, plain, plain), -1);
  EXPECT_EQ(compareNumerically(a, b, 2, 1, plain, oneLess), 0);
  EXPECT_EQ(compareNumerically(a, b, 3, 2, plain, plain), 0) << "nothing left of either";
}

// The slow, obvious way: take both texts apart into units and numbers, then compare those.
using Token = std::variant<char16_t, std::uint64_t>;

std::vector<Token> tokensOf(const std::u16string& text) {
  std::vector<Token> tokens;
  bool inNumber = false;
  for (const char16_t unit : text) {
    const bool digit = unit >= u'0' && unit <= u'9';
    if (!digit)
      tokens.emplace_back(unit);
    else if (!inNumber)
      tokens.emplace_back(std::uint64_t{unit} - '0');
    else
      std::get<std::uint64_t>(tokens.back()) =
          std::get<std::uint64_t>(tokens.back()) * 10U + (std::uint64_t{unit} - '0');
    inNumber = digit;
  }
  return tokens;
}

int signOf(const Token& a, const Token& b) {
  const auto* unitA = std::get_if<char16_t>(&a);
  const auto* unitB = std::get_if<char16_t>(&b);
  if (!unitA && !unitB)
    return a < b ? -1 : a == b ? 0 : 1;
  const char16_t first = unitA ? *unitA : u'5'; // any digit will do
  const char16_t second = unitB ? *unitB : u'5';
  return first < second ? -1 : first > second ? 1 : 0;
}

int obviously(const std::u16string& a, const std::u16string& b) {
  const std::vector<Token> left = tokensOf(a);
  const std::vector<Token> right = tokensOf(b);
  for (std::size_t i = 0; i < std::min(left.size(), right.size()); ++i)
    if (const int sign = signOf(left[i], right[i]))
      return sign;
  return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
}

// Short texts of few characters, so that they often agree for a while; some long runs of digits.
class RandomNames {
public:
  std::u16string next() {
    constexpr std::u16string_view units = u"0019aAz .\xD83D\xDE00\xFFFD";
    std::u16string text;
    for (std::size_t i = upTo(6); i > 0; --i)
      text += units[upTo(units.size() - 1)];
    if (upTo(9) == 0)
      text += std::u16string(upTo(25), u'9') + static_cast<char16_t>(u'0' + upTo(9));
    if (upTo(9) == 0)
      text += u"18446744073709551616";
    return text;
  }

private:
  std::size_t upTo(std::size_t most) {
    return std::uniform_int_distribution<std::size_t>(0, most)(random_);
  }
  std::mt19937 random_{20'010'101};
};

TEST(NumericOrder, AgreesWithTheObviousWayOnRandomTexts) {
  RandomNames names;
  for (int i = 0; i < 200'000; ++i) {
    const std::u16string a = names.next();
    const std::u16string b = names.next();
    ASSERT_EQ(compareNumerically(a, b), obviously(a, b))
        << utf8FromUtf16(a) << " and " << utf8FromUtf16(b);
    ASSERT_EQ(compareNumerically(b, a), -compareNumerically(a, b));
  }
}

TEST(NumericOrder, IsAStrictWeakOrderSoThatAnyWayOfSortingMayUseIt) {
  RandomNames names;
  for (int i = 0; i < 200'000; ++i) {
    const std::u16string a = names.next();
    const std::u16string b = names.next();
    const std::u16string c = names.next();
    const int ab = compareNumerically(a, b);
    if (ab == compareNumerically(b, c) || compareNumerically(b, c) == 0) {
      ASSERT_EQ(compareNumerically(a, c), ab) << utf8FromUtf16(a) << " " << utf8FromUtf16(b);
    }
  }
}

TEST(NumericOrder, NamesThatCountAlikeGoByTheirBytes) {
  const std::vector<std::string_view> names{"b", "7", "a10", "007", "a9", "A1", "\xFF", "\xFE"};
  EXPECT_THAT(numericOrder(names), ElementsAre(3, 1, 5, 4, 2, 0, 7, 6));
}

TEST(NumericOrder, AHundredThousandNamesThatAllCountAlikeAreSorted) {
  const std::string digits = std::string(199, '0') + "7";
  std::vector<std::string_view> names;
  for (std::size_t i = 0; i < 100'000; ++i)
    names.push_back(std::string_view(digits).substr(i % 200));
  const std::vector<std::size_t> order = numericOrder(names);
  EXPECT_EQ(names[order.front()].size(), 200U);
  EXPECT_EQ(names[order.back()], "7");
}

} // namespace
} // namespace tavrel
