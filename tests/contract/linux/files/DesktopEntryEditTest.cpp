#include "platform/linux/files/DesktopEntryEdit.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(DesktopEntryEdit, AKeyOfTheMainGroupAloneIsChanged) {
  EXPECT_EQ(withEntryKey("[A]\nk=1\n[Desktop Entry]\nk=1\nkk=2\n\n[B]\nk=3\n", "k", "9"),
            "[A]\nk=1\n[Desktop Entry]\nkk=2\nk=9\n\n[B]\nk=3\n");
  EXPECT_EQ(withEntryKey("[Desktop Entry]\r\nk=1\r\nk = 2", "k", std::nullopt),
            "[Desktop Entry]\r\n");
  EXPECT_EQ(withEntryKey("[Desktop Entry]", "k", "1"), "[Desktop Entry]\nk=1\n");
  EXPECT_EQ(withEntryKey("", "k", "1"), "[Desktop Entry]\nk=1\n");
  EXPECT_EQ(withEntryKey("[Desktop Entry]\nk[de]=1\n", "k", "1"),
            "[Desktop Entry]\nk[de]=1\nk=1\n");
}

} // namespace
} // namespace tavrel
