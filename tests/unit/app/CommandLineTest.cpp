#include "app/CommandLine.h"

#include <gtest/gtest.h>

#include <vector>

namespace tavrel {
namespace {

Command commandOf(const std::vector<const char*>& arguments) {
  return commandFromArguments(arguments);
}

TEST(CommandLine, NoArgumentStartsTheProgram) {
  EXPECT_EQ(commandOf({}), Command::start);
}

TEST(CommandLine, HelpAndVersionStandAlone) {
  EXPECT_EQ(commandOf({"--help"}), Command::help);
  EXPECT_EQ(commandOf({"--version"}), Command::version);
  EXPECT_EQ(commandOf({"--help", "--version"}), Command::misuse);
}

TEST(CommandLine, AnythingElseIsMisuse) {
  for (const char* argument : {"", "-h", "help", "--helpme", "file.txt"})
    EXPECT_EQ(commandOf({argument}), Command::misuse) << argument;
}

TEST(CommandLine, TheHelpNamesBothOptions) {
  EXPECT_NE(helpText().find("--help"), std::string::npos);
  EXPECT_NE(helpText().find("--version"), std::string::npos);
}

} // namespace
} // namespace tavrel
