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

TEST(Utf8, ASurrogateWithoutItsPartnerIsReplaced) {
  EXPECT_EQ(utf8FromUtf16(std::u16string{0xD834}), "\uFFFD");
  EXPECT_EQ(utf8FromUtf16(std::u16string{0xDD1E, 'a'}), "\uFFFDa");
  EXPECT_EQ(utf8FromUtf16(std::u16string{0xD834, 'a'}), "\uFFFDa");
}

} // namespace
} // namespace tavrel
