#include "platform/common/ScriptSource.h"

#include <gtest/gtest.h>

namespace tavrel {

TEST(ScriptSource, APlainRequestAsksForNoShell) {
  EXPECT_FALSE(asksForShell("tell application \"Finder\"\nactivate\nend tell"));
  EXPECT_FALSE(asksForShell(""));
}

TEST(ScriptSource, ACommandForTheShellIsSeenHoweverItIsWritten) {
  EXPECT_TRUE(asksForShell("do shell script \"ls\""));
  EXPECT_TRUE(asksForShell("Do  Shell\tScript \"ls\""));
  EXPECT_TRUE(asksForShell("do \xC2\xAC\nshell\xC2\xA0script \"ls\""));
  EXPECT_TRUE(asksForShell("run script \"x\""));
  EXPECT_TRUE(asksForShell("\xC2\xAB"
                           "event sysoexec\xC2\xBB \"ls\""));
}

TEST(ScriptSource, AQuotedNameMayHoldTheSameWords) {
  EXPECT_FALSE(asksForShell("open \"/tmp/do shell script\""));
  EXPECT_FALSE(asksForShell("open \"/tmp/a\\\" & do shell script \\\"ls\""));
}

TEST(ScriptSource, ANameThatEndsItsQuotesHidesNothing) {
  EXPECT_TRUE(asksForShell("open \"/tmp/a\" & (do shell script \"ls\") & \"\""));
}

TEST(ScriptSource, AQuoteThatNeverEndsIsReadToTheEnd) {
  EXPECT_FALSE(asksForShell("open \"/tmp/do shell script"));
  EXPECT_FALSE(asksForShell("open \"\\"));
}

} // namespace tavrel
