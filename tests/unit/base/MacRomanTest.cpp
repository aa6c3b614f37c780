#include "base/MacRoman.h"

#include <gtest/gtest.h>

#include <string_view>

namespace tavrel {
namespace {

constexpr std::u32string_view upperHalf = U"ÄÅÇÉÑÖÜáàâäãåçéè"
                                          U"êëíìîïñóòôöõúùûü"
                                          U"†°¢£§•¶ß®©™´¨≠ÆØ"
                                          U"∞±≤≥¥µ∂∑∏π∫ªºΩæø"
                                          U"¿¡¬√ƒ≈∆«»…\u00A0ÀÃÕŒœ"
                                          U"–—“”‘’÷◊ÿŸ⁄€‹›ﬁﬂ"
                                          U"‡·‚„‰ÂÊÁËÈÍÎÏÌÓÔ"
                                          U"\uF8FFÒÚÛÙıˆ˜¯˘˙˚¸˝˛ˇ";

TEST(MacRoman, TheUpperHalfHoldsLettersAndSignsOfItsOwn) {
  ASSERT_EQ(upperHalf.size(), 128);
  for (std::size_t i = 0; i < upperHalf.size(); ++i)
    EXPECT_EQ(macRomanCode(upperHalf[i]), 128 + i) << "character " << i;
}

TEST(MacRoman, TheLowerHalfIsAscii) {
  for (std::uint8_t code = 0; code < 128; ++code)
    EXPECT_EQ(macRomanCode(code), code);
}

TEST(MacRoman, ACharacterOfNeitherHalfHasNoCode) {
  EXPECT_EQ(macRomanCode(0x80), 0);
  EXPECT_EQ(macRomanCode(U'я'), 0);
}

} // namespace
} // namespace tavrel
