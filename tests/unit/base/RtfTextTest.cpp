#include "base/RtfText.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tavrel {
namespace {

TEST(RtfText, TheWordsStandWithoutTheirAttributes) {
  EXPECT_EQ(textOfRtf("{\\rtf1\\ansi{\\fonttbl{\\f0 Helvetica;}}\\f0\\fs24 Hello \\b bold\\b0 .}"),
            "Hello bold.");
}

TEST(RtfText, ParagraphsAndTabsAreKept) {
  EXPECT_EQ(textOfRtf("{\\rtf1 one\\par two\\line\\tab three}"), "one\ntwo\n\tthree");
  EXPECT_EQ(textOfRtf("{\\rtf1 one\\\ntwo\r\n}"), "one\ntwo");
}

TEST(RtfText, EscapedBracesAndBackslashesAreText) {
  EXPECT_EQ(textOfRtf("{\\rtf1 \\{a\\\\b\\}}"), "{a\\b}");
}

TEST(RtfText, BytesAreWindows1252) {
  EXPECT_EQ(textOfRtf("{\\rtf1 caf\\'e9 \\'80\\'81}"), "caf\u00E9 \u20AC\uFFFD");
}

TEST(RtfText, TheBytesBelowLatin1HaveCharactersOfTheirOwn) {
  const std::string_view digits = "0123456789abcdef";
  std::string bytes = "{\\rtf1 ";
  for (const char high : {'8', '9'})
    for (const char low : digits)
      bytes.append("\\'").append({high, low});
  EXPECT_EQ(textOfRtf(bytes + "\\'a0\\'7f}"), "€\uFFFD‚ƒ„…†‡ˆ‰Š‹Œ\uFFFDŽ\uFFFD"
                                              "\uFFFD‘’“”•–—˜™š›œ\uFFFDžŸ\u00A0\x7F");
}

TEST(RtfText, WordsForBreaksAndSignsBecomeThem) {
  EXPECT_EQ(textOfRtf("{\\rtf1 a\\par b\\line c\\sect d\\page e\\row f\\tab g\\cell h}"),
            "a\nb\nc\nd\ne\nf\tg\th");
  EXPECT_EQ(textOfRtf("{\\rtf1\\lquote a\\rquote\\ldblquote b\\rdblquote\\emdash\\endash\\bullet}"),
            "‘a’“b”—–•");
}

TEST(RtfText, SymbolsForSpacesAndHyphensBecomeThem) {
  EXPECT_EQ(textOfRtf("{\\rtf1 a\\~b\\_c\\-d\\:e\\|f\\\rg}"), "a\u00A0b\u2011cdef\ng");
}

TEST(RtfText, GroupsThatDescribeTheDocumentAreNoText) {
  for (const char* word : {"fonttbl", "colortbl", "stylesheet", "info", "pict", "object", "header",
                           "footer", "footnote", "listtable", "rsidtbl", "generator"})
    EXPECT_EQ(textOfRtf("{\\rtf1 a{\\" + std::string(word) + " hidden\\par}b}"), "ab") << word;
}

TEST(RtfText, UnicodeCharactersReplaceWhatStandsInForThem) {
  EXPECT_EQ(textOfRtf("{\\rtf1 \\u8364?x}"), "\u20ACx");
  EXPECT_EQ(textOfRtf("{\\rtf1\\uc2 \\u8364\\'3f?x}"), "\u20ACx");
  EXPECT_EQ(textOfRtf("{\\rtf1\\uc0 \\u-10179\\u-8704 x}"), "\U0001F600x");
  EXPECT_EQ(textOfRtf("{\\rtf1\\uc0 \\u-8704 x}"), "\uFFFDx");
}

TEST(RtfText, HalvesOfACharacterPairUpFromTheFirstToTheLast) {
  EXPECT_EQ(textOfRtf("{\\rtf1\\uc0 \\u-10240\\u-9216 \\u-9217\\u-8193 }"), "\U00010000\U0010FFFF");
  EXPECT_EQ(textOfRtf("{\\rtf1\\uc0 \\u-10241\\u-8192 }"), "\uD7FF\uE000");
}

TEST(RtfText, ASecondHalfAfterAWholeCharacterStandsAlone) {
  EXPECT_EQ(textOfRtf("{\\rtf1\\uc0 \\u-10179\\u-8704\\u-8704 x}"), "\U0001F600\uFFFDx");
}

TEST(RtfText, IgnoredGroupsAndBinaryDataAreSkipped) {
  EXPECT_EQ(textOfRtf("{\\rtf1 a{\\*\\unknown hidden}{\\pict\\bin3 }}}}b}"), "ab");
}

TEST(RtfText, WhatIsNoRtfHasNoWords) {
  for (const char* text : {"", "plain", "{\\rt", "\\rtf1"})
    EXPECT_EQ(textOfRtf(text), std::nullopt) << text;
}

TEST(RtfText, ABrokenDocumentHasTheWordsUpToThere) {
  EXPECT_EQ(textOfRtf("{\\rtf1 one {\\b two"), "one two");
  EXPECT_EQ(textOfRtf("{\\rtf1 one\\"), "one");
  EXPECT_EQ(textOfRtf("{\\rtf1 one}}}} more"), "one");
  EXPECT_EQ(textOfRtf("{\\rtf1 \\bin99999 x"), "");
  EXPECT_EQ(textOfRtf("{\\rtf1 \\'"), "");
}

TEST(RtfText, AHundredThousandGroupsCostNoStack) {
  const std::string deep(100'000, '{');
  EXPECT_EQ(textOfRtf("{\\rtf1 " + deep + "x"), "x");
}

} // namespace
} // namespace tavrel
