#include "contract/TextEncodingsContract.h"

#include "base/Utf8.h"
#include "platform/linux/text/EncodingTable.h"
#include "platform/linux/text/LinuxTextEncodings.h"

#include <chrono>
#include <iconv.h>

namespace tavrel {
namespace {

class LinuxWorld {
public:
  TextEncodings& textEncodings() { return textEncodings_; }

private:
  LinuxTextEncodings textEncodings_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, TextEncodingsContract, LinuxWorld);

class LinuxTextEncodingsTest : public TextEncodingsContract<LinuxWorld> {
protected:
  /// By the displayed name.
  std::string writtenIn(const std::string& name, std::string_view text) {
    for (const StringEncoding each : listed())
      if (encodings().nameOf(each) == name)
        return written(text, encodings().frameworkEncoding(each));
    return "(no such encoding)";
  }

  std::string hexadecimal(const std::string& name, std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string result;
    for (const char each : writtenIn(name, text)) {
      const auto byte = static_cast<unsigned char>(each);
      result += digits[byte >> 4U];
      result += digits[byte & 0x0FU];
    }
    return result;
  }
};

/// Another library's reading of bytes.
class Reader {
public:
  explicit Reader(const char* encoding) : handle_(::iconv_open("UTF-8", encoding)) {}
  ~Reader() {
    if (isThere())
      ::iconv_close(handle_);
  }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  [[nodiscard]] bool isThere() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }
  [[nodiscard]] std::string read(std::string bytes) {
    std::string text(bytes.size() * 4 + 16, '\0');
    char* from = bytes.data();
    char* to = text.data();
    std::size_t left = bytes.size();
    std::size_t room = text.size();
    ::iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    if (::iconv(handle_, &from, &left, &to, &room) == static_cast<std::size_t>(-1))
      return "(unreadable)";
    text.resize(text.size() - room);
    return text;
  }

private:
  iconv_t handle_;
};

bool isAscii(const std::string& text) {
  return std::ranges::all_of(text, [](char each) { return each >= 0; });
}

struct ReferenceBytes {
  const char* encoding;
  const char* text;
  const char* bytes;
};

// As two other libraries write them.
constexpr ReferenceBytes referenceBytes[]{
    {"Western (Windows Latin 1)", "é€…", "E98085"},
    {"Central European (Windows Latin 2)", "Łódź", "A3F3649F"},
    {"Central European (ISO Latin 2)", "Łódź", "A3F364BC"},
    {"Cyrillic (Windows)", "Привет", "CFF0E8E2E5F2"},
    {"Cyrillic (KOI8-R)", "Привет", "F0D2C9D7C5D4"},
    {"Ukrainian (KOI8-U)", "Їжак", "B7D6C1CB"},
    {"Cyrillic (ISO 8859-5)", "Привет", "BFE0D8D2D5E2"},
    {"Cyrillic (Mac OS)", "Привет", "8FF0E8E2E5F2"},
    {"Russian (DOS)", "Привет", "8FE0A8A2A5E2"},
    {"Greek (Windows)", "Αθήνα", "C1E8DEEDE1"},
    {"Greek (ISO 8859-7)", "Αθήνα", "C1E8DEEDE1"},
    {"Greek (Mac OS)", "Αθήνα", "B0F5DCEEE1"},
    {"Turkish (Windows Latin 5)", "İğış", "DDF0FDFE"},
    {"Turkish (Mac OS)", "İğış", "DCDBDDDF"},
    {"Central European (Mac OS)", "Łódź", "FC976490"},
    {"Hebrew (Windows)", "שלום", "F9ECE5ED"},
    {"Arabic (Windows)", "سلام", "D3E1C7E3"},
    {"Baltic (Windows)", "Ąžuolas", "C0FE756F6C6173"},
    {"Thai (Windows, DOS)", "ไทย", "E4B7C2"},
    {"Western (ISO Latin 9)", "œ€", "BDA4"},
    {"Western (DOS Latin 1)", "éß", "82E1"},
    {"Latin-US (DOS)", "é½", "82AB"},
    {"Japanese (Shift JIS)", "日本語ｶﾅ", "93FA967B8CEAB6C5"},
    {"Japanese (Windows, DOS)", "日本①", "93FA967B8740"},
    {"Japanese (EUC)", "日本語", "C6FCCBDCB8EC"},
    {"Japanese (ISO 2022-JP)", "a日本b", "611B2442467C4B5C1B284262"},
    {"Simplified Chinese (GB 2312)", "中文", "D6D0CEC4"},
    {"Chinese (GBK)", "中文鎔", "D6D0CEC4E667"},
    {"Simplified Chinese (GB 18030)", "中文😀é", "D6D0CEC49439FC36A8A6"},
    {"Traditional Chinese (Big 5)", "中文", "A4A4A4E5"},
    {"Traditional Chinese (Big 5 HKSCS)", "中文嗰", "A4A4A4E59DF5"},
    {"Korean (EUC)", "한국", "C7D1B1B9"},
    {"Korean (Windows, DOS)", "한국똠", "C7D1B1B98C63"},
    {"Korean (ISO 2022-KR)", "한국", "1B2429430E475131390F"},
    {"Western (EBCDIC Latin 1)", "ABC é", "C1C2C34051"},
    {"Unicode (UTF-16BE)", "a😀", "0061D83DDE00"},
    {"Unicode (UTF-16LE)", "a😀", "61003DD800DE"},
    {"Unicode (UTF-32BE)", "a😀", "000000610001F600"},
    {"Unicode (UTF-32LE)", "a😀", "6100000000F60100"},
    {"Unicode (UTF-7)", "a é", "61202B414F6B2D"},
    {"Unicode (UTF-16)", "aé", "FFFE6100E900"},
    {"Unicode (UTF-32)", "a", "FFFE000061000000"}};

TEST_F(LinuxTextEncodingsTest, TextIsWrittenAsOtherLibrariesWriteIt) {
  for (const ReferenceBytes& each : referenceBytes)
    EXPECT_EQ(hexadecimal(each.encoding, each.text), each.bytes) << each.encoding;
}

TEST_F(LinuxTextEncodingsTest, NumbersAreThoseOfTheFramework) {
  const std::pair<StringEncoding, StringEncoding> numbers[]{{0x0100, 10},
                                                            {0x0202, 9},
                                                            {0x0502, 11},
                                                            {0x0500, 12},
                                                            {0x0503, 13},
                                                            {0x0504, 14},
                                                            {0x0501, 15},
                                                            {0x0820, 21},
                                                            {0x0920, 3},
                                                            {0x0420, 8},
                                                            {0x0A01, 0x80000A01},
                                                            {0x10000100, 0x90000100},
                                                            {0x1C000100, 0x9C000100}};
  for (const auto& [number, framework] : numbers)
    EXPECT_EQ(encodings().frameworkEncoding(number), framework) << number;
}

TEST_F(LinuxTextEncodingsTest, WhatIsWrittenReadsAsItWasOrAsItsAsciiForm) {
  constexpr int lookAlikes = 5; // the libraries do not agree on a few characters
  int readable = 0;
  for (const EncodingRow& row : encodingTable()) {
    Reader reader(row.converter);
    if (!reader.isThere() || !encodings().nameOf(row.number) || row.mark == ByteOrderMark::first)
      continue;
    ++readable;
    int others = 0;
    for (char32_t character = 0xA0; character < 0x0700; ++character) {
      std::string text;
      appendUtf8(text, character);
      const std::string back = reader.read(written(text, row.framework));
      others += back == text || isAscii(back) ? 0 : 1;
    }
    EXPECT_LE(others, lookAlikes) << row.name;
  }
  EXPECT_GT(readable, 50);
}

TEST_F(LinuxTextEncodingsTest, EveryEncodingTakesEveryText) {
  std::string text("\xFF\xC0 tab\t nul");
  text += '\0';
  for (char32_t character = 1; character < 0x30000; character += 37)
    appendUtf8(text, character);
  for (const StringEncoding each : listed())
    EXPECT_GT(written(text, encodings().frameworkEncoding(each)).size(), text.size() / 8) << each;
}

TEST_F(LinuxTextEncodingsTest, ALetterAndItsAccentAreOneCharacterWhereThereIsOne) {
  EXPECT_EQ(hexadecimal("Western (Mac OS Roman)", "e\u0301"), "8E");
  EXPECT_EQ(hexadecimal("Western (ASCII)", "e\u0301"), "65");
  EXPECT_EQ(hexadecimal("Unicode (UTF-8)", "e\u0301"), "65CC81");
  EXPECT_EQ(hexadecimal("Unicode (UTF-16LE)", "e\u0301"), "65000103");
}

TEST_F(LinuxTextEncodingsTest, OtherLettersLoseTheirAccentsBeforeTheyAreLost) {
  EXPECT_EQ(writtenIn("Western (ASCII)", "Dvořák ﬁ ２ ™ №"), "Dvorak fi 2 TM No");
  EXPECT_EQ(writtenIn("Western (ISO Latin 1)", "Łódź 中"), "L\xF3\x64z ?");
}

TEST_F(LinuxTextEncodingsTest, AStatefulEncodingEndsInItsFirstState) {
  EXPECT_EQ(hexadecimal("Japanese (ISO 2022-JP)", "日😀日"), "1B2442467C1B28423F1B2442467C1B2842");
}

TEST_F(LinuxTextEncodingsTest, ALongTextOfOtherCharactersTakesSeconds) {
  std::string text;
  while (text.size() < 16'000'000)
    text += "日本語😀";
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(writtenIn("Japanese (Shift JIS)", text).size(), (text.size() + 12) / 13 * 7);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
}

// A part of the text ends between the two units of a character.
TEST_F(LinuxTextEncodingsTest, NoCharacterIsLostBetweenTheParts) {
  std::string text = "a";
  std::string expected = text;
  for (int i = 0; i < 600'000; ++i) {
    text += "😀";
    expected += '?';
  }
  EXPECT_TRUE(written(text, ascii) == expected);
}

} // namespace
} // namespace tavrel
