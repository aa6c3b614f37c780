#include "scripting/UrlString.h"
#include "scripting/EncodingNames.h"
#include "support/CoreTest.h"

#include <random>

namespace tavrel {
namespace {

class UrlString : public CoreTest {
protected:
  static constexpr StringEncoding utf8 = 4;
  static constexpr StringEncoding macRoman = 30;

  static PropertyList converted(std::string_view text, StringEncoding encoding = utf8,
                                LineEndings endings = LineEndings::lineFeed) {
    return URLStringInEncoding(text, encoding, endings, RawData::no);
  }
};

// Byte by byte, as plainly as it can be said.
std::string slowlyEscaped(std::string_view bytes, LineEndings endings) {
  std::string escaped;
  for (const char each : bytes) {
    const auto byte = static_cast<unsigned char>(each);
    const bool kept = byte > 0x0F && byte <= 0x7E &&
                      std::string_view(" <>[]^`|{}").find(each) == std::string_view::npos;
    char hexadecimal[4];
    std::snprintf(hexadecimal, sizeof hexadecimal, "%%%02X", byte);
    if (kept)
      escaped += each;
    else if (byte == 0x0A && endings == LineEndings::carriageReturn)
      escaped += "%0D";
    else if (byte == 0x0A && endings == LineEndings::carriageReturnLineFeed)
      escaped += "%0D%0A";
    else
      escaped += hexadecimal;
  }
  return escaped;
}

TEST_F(UrlString, ASpaceIsEscapedInAnyEncoding) {
  for (const StringEncoding encoding : {utf8, macRoman, StringEncoding{1}, StringEncoding{5}})
    EXPECT_EQ(converted("a b", encoding), PropertyList("a%20b"));
}

TEST_F(UrlString, APercentSignStays) {
  EXPECT_EQ(converted("100%"), PropertyList("100%"));
}

TEST_F(UrlString, TheModesOfALineFeedAreNumberedFromOne) {
  EXPECT_EQ(LineEndings{1}, LineEndings::carriageReturn);
  EXPECT_EQ(LineEndings{2}, LineEndings::carriageReturnLineFeed);
  EXPECT_EQ(LineEndings{3}, LineEndings::lineFeed);
}

TEST_F(UrlString, ALineFeedGoesByTheMode) {
  EXPECT_EQ(converted("x\ny", utf8, LineEndings::carriageReturn), PropertyList("x%0Dy"));
  EXPECT_EQ(converted("x\ny", utf8, LineEndings::carriageReturnLineFeed), PropertyList("x%0D%0Ay"));
  EXPECT_EQ(converted("x\ny", utf8, LineEndings::lineFeed), PropertyList("x%0Ay"));
}

TEST_F(UrlString, ACarriageReturnStaysOneInEveryMode) {
  EXPECT_EQ(converted("\r\n", utf8, LineEndings::carriageReturn), PropertyList("%0D%0D"));
  EXPECT_EQ(converted("\r\n", utf8, LineEndings::carriageReturnLineFeed),
            PropertyList("%0D%0D%0A"));
  EXPECT_EQ(converted("\r\n"), PropertyList("%0D%0A"));
}

TEST_F(UrlString, ATabIsEscapedATildeStaysAndDelIsEscaped) {
  EXPECT_EQ(converted("\t~\x7F"), PropertyList("%09~%7F"));
}

TEST_F(UrlString, ANulIsEscaped) {
  EXPECT_EQ(converted(std::string_view("a\0b", 3)), PropertyList("a%00b"));
}

TEST_F(UrlString, WhatHasAMeaningInUrlsPasses) {
  EXPECT_EQ(converted("%#&?/\"'+=:;,@!$*()\\"), PropertyList("%#&?/\"'+=:;,@!$*()\\"));
}

TEST_F(UrlString, TenCharactersAreEscaped) {
  EXPECT_EQ(converted(" <>[]^`|{}"), PropertyList("%20%3C%3E%5B%5D%5E%60%7C%7B%7D"));
}

TEST_F(UrlString, ControlCharactersFromSixteenOnPass) {
  EXPECT_EQ(converted("\x0F\x10\x1F"), PropertyList("%0F\x10\x1F"));
}

TEST_F(UrlString, AnAccentGoesByTheEncoding) {
  EXPECT_EQ(converted("é", encodingFromName("Unicode (UTF-8)")), PropertyList("%C3%A9"));
  EXPECT_EQ(converted("é", encodingFromName("Western (Mac OS Roman)")), PropertyList("%8E"));
}

TEST_F(UrlString, RawDataAreTheSameBytes) {
  EXPECT_EQ(URLStringInEncoding("a b", utf8, LineEndings::lineFeed, RawData::yes),
            PropertyList(Bytes{'a', '%', '2', '0', 'b'}));
}

TEST_F(UrlString, ATextThatCannotBeEncodedAtAllIsEmpty) {
  EXPECT_EQ(converted("a", 12345), PropertyList(""));
  EXPECT_EQ(URLStringInEncoding("a", 12345, LineEndings::lineFeed, RawData::yes),
            PropertyList(Bytes{}));
}

TEST_F(UrlString, EveryByteComesOutAsPlainlySaid) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    std::string bytes(random() % 200, ' ');
    const auto limit = round % 2 == 0 ? 256U : 128U;
    for (char& byte : bytes)
      byte = static_cast<char>(random() % limit);
    for (const auto endings :
         {LineEndings::carriageReturn, LineEndings::carriageReturnLineFeed, LineEndings::lineFeed})
      EXPECT_EQ(escapedForUrl(bytes, endings), slowlyEscaped(bytes, endings));
  }
}

TEST_F(UrlString, ALongTextWithNothingToEscapeIsItself) {
  for (const std::size_t size : {63, 64, 65, 127, 128, 4095, 4096, 4097, 10000})
    EXPECT_EQ(escapedForUrl(std::string(size, 'a'), LineEndings::lineFeed), std::string(size, 'a'));
}

TEST_F(UrlString, OneCharacterIsEscapedWhereverItStandsInALongText) {
  for (std::size_t place = 0; place < 200; ++place)
    for (const char character : {' ', '\n', '{', '>'}) {
      std::string text(200, 'a');
      text[place] = character;
      EXPECT_EQ(escapedForUrl(text, LineEndings::carriageReturnLineFeed),
                slowlyEscaped(text, LineEndings::carriageReturnLineFeed));
    }
}

TEST_F(UrlString, AnEscapedTextTakesNoMoreRoomThanItsLength) {
  const std::string pattern = "plain {words}\nand\nlines<>";
  std::string text;
  for (int i = 0; i < 1000; ++i)
    text += pattern;
  for (const auto endings :
       {LineEndings::carriageReturn, LineEndings::carriageReturnLineFeed, LineEndings::lineFeed}) {
    const std::string escaped = escapedForUrl(text, endings);
    EXPECT_LT(escaped.capacity(), escaped.size() + 32);
  }
}

TEST_F(UrlString, ANameInAnotherCaseIsNoEncoding) {
  EXPECT_EQ(encodingFromName("Unicode (utf-8)"), invalidEncoding);
  EXPECT_EQ(encodingFromName(""), invalidEncoding);
}

TEST_F(UrlString, OfTwoEncodingsOfOneNameTheFirstInTheListCounts) {
  desktop.textEncodings.control.listed = {0x0201, 0x08000100};
  EXPECT_EQ(encodingFromName("Unicode (UTF-8)"), utf8);
  EXPECT_EQ(encodingFromName("Western (Mac OS Roman)"), invalidEncoding);
}

TEST_F(UrlString, TheListEndsAtItsTerminator) {
  desktop.textEncodings.control.listed = {invalidEncoding, 0x08000100};
  EXPECT_EQ(encodingFromName("Unicode (UTF-8)"), invalidEncoding);
}

} // namespace
} // namespace tavrel
