#include "platform/linux/system/LinuxSystemLog.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

std::string written(const std::string& line) {
  ::testing::internal::CaptureStderr();
  LinuxSystemLog().write(line);
  return ::testing::internal::GetCapturedStderr();
}

TEST(LinuxSystemLog, AnEntryIsALineWithTheProgramsName) {
  EXPECT_EQ(written("KeyMap 0"), "tavrel: KeyMap 0\n");
  EXPECT_EQ(written(""), "tavrel: \n");
}

TEST(LinuxSystemLog, LineFeedsInsideAreKeptAndIndented) {
  EXPECT_EQ(written("types=a  contents(b)=[c] \nchangeCount=1"),
            "tavrel: types=a  contents(b)=[c] \n  changeCount=1\n");
}

} // namespace
} // namespace tavrel
