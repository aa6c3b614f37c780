#include "base/Utf8.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(Utf8, TextGoesToUtf16AndBack) {
  for (const char* text : {"", "plain", "Größe", "日本語", "clef 𝄞 and 😀"})
    EXPECT_EQ(utf8FromUtf16(utf16FromUtf8(text)), text);
}

TEST(Utf8, CodePointsAtTheEndsOfEachLengthAreWhole) {
  const std::u16string units = u"\u007F\u0080\u07FF\u0800\uFFFD\U00010000\U0010FFFF";
  EXPECT_EQ(utf16FromUtf8(utf8FromUtf16(units)), units);
}

TEST(Utf8, TheLastAndFirstSequencesOfEachLengthAreWellFormed) {
  for (const char* text : {"", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF",
                           "\xEE\x80\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"})
    EXPECT_TRUE(isUtf8(text)) << text;
}

TEST(Utf8, WhatLiesJustBeyondIsMalformed) {
  for (const char* bytes :
       {"\x80", "\xBF", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xED\xBF\xBF",
        "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "\xC3", "\xE2\x82",
        "\xF0\x9F\x98", "\xC3(", "\xE2\x82(", "\xE2(\xA1", "\xF0\x9F\x98(", "good\xC0"})
    EXPECT_FALSE(isUtf8(bytes)) << bytes;
}

TEST(Utf8, EveryByteOfAMalformedSequenceIsReplaced) {
  EXPECT_EQ(utf16FromUtf8("a\xE2\x82z"), u"a\uFFFD\uFFFDz");
  EXPECT_EQ(utf16FromUtf8("\xC0\x80"), u"\uFFFD\uFFFD");
}

TEST(Utf8, TheEndsOfEachLengthAreTheseBytes) {
  const std::string bytes = "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80"
                            "\xF4\x8F\xBF\xBF";
  std::string appended;
  for (const char32_t codePoint : {0x7F, 0x80, 0x7FF, 0x800, 0xFFFF, 0x10000, 0x10FFFF})
    appendUtf8(appended, codePoint);
  EXPECT_EQ(appended, bytes);
  EXPECT_EQ(utf16FromUtf8(bytes), u"\u007F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF");
}

TEST(Utf8, ASurrogateWithoutItsPartnerIsReplaced) {
  EXPECT_EQ(utf8FromUtf16(std::u16string{0xD834}), "\uFFFD");
  EXPECT_EQ(utf8FromUtf16(std::u16string{0xDD1E, 'a'}), "\uFFFDa");
  EXPECT_EQ(utf8FromUtf16(std::u16string{0xD834, 'a'}), "\uFFFDa");
  EXPECT_EQ(utf8FromUtf16(std::u16string{0xD834, 0xE000}), "\uFFFD\uE000");
  EXPECT_EQ(utf8FromUtf16(std::u16string{0xD7FF, 0xDC00}), "\uD7FF\uFFFD");
}

TEST(Utf8, TheFirstAndLastSurrogatesPairUp) {
  EXPECT_EQ(utf8FromUtf16(std::u16string{0xD800, 0xDC00}), "\U00010000");
  EXPECT_EQ(utf8FromUtf16(std::u16string{0xDBFF, 0xDFFF}), "\U0010FFFF");
  EXPECT_EQ(utf8FromUtf16(std::u16string{0xDBFF, 0xDBFF}), "\uFFFD\uFFFD");
}

} // namespace
} // namespace tavrel
