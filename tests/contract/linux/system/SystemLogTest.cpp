#include "platform/linux/system/LinuxSystemLog.h"

#include <QLoggingCategory>

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

std::string debugWritten(const char* rules) {
  QLoggingCategory::setFilterRules(rules);
  ::testing::internal::CaptureStderr();
  LinuxSystemLog().debug(LogArea::menu, "\"a\" is hidden");
  std::string text = ::testing::internal::GetCapturedStderr();
  QLoggingCategory::setFilterRules({});
  return text;
}

TEST(LinuxSystemLog, DebugLinesOfAnAreaAreOffUnlessTheLoggingRulesWantThem) {
  EXPECT_FALSE(LinuxSystemLog().isDebugOn(LogArea::menu));
  EXPECT_EQ(debugWritten(""), "");
  EXPECT_EQ(debugWritten("tavrel.menu.debug=true"), "tavrel.menu: \"a\" is hidden\n");
}

} // namespace
} // namespace tavrel
