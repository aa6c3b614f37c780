#include "script/ScriptTest.h"

namespace tavrel::script {
namespace {

/// Sources that the application builds around a path, with paths that try to get out of it.
class InjectionTest : public ScriptTest {
protected:
  void SetUp() override {
    for (const char* command : {"reveal", "activate", "do script", "count", "open"})
      host.replies[command] = [](const HostEvent&) { return HostValue{std::int64_t{1}}; };
    host.replies["do shell script"] = [this](const HostEvent&) {
      ++shellCommands;
      return HostValue{};
    };
  }
  std::string reveal(const std::string& path) {
    return result("tell application \"Finder\" to reveal \"" + path + "\" as POSIX file",
                  Author::application);
  }
  std::string terminal(const std::string& command) {
    return result("tell application \"terminal\"\nactivate\n if number of windows > 0 then \n do "
                  "script (\"" +
                      command + "\" as text) in window 1\n else\n do script (\"" + command +
                      "\" as text)\n end if\n end tell\n",
                  Author::application);
  }
  [[nodiscard]] int scriptsDone() const {
    int count = 0;
    for (const HostEvent& event : host.asked)
      count += event.command == "do script" ? 1 : 0;
    return count;
  }
  int shellCommands = 0;
};

TEST_F(InjectionTest, AnOrdinaryPathIsRevealed) {
  EXPECT_EQ(reveal("/home/a b"), "1");
  EXPECT_EQ(std::get<HostFile>(host.asked.at(0).direct->value).path, "/home/a b");
}

TEST_F(InjectionTest, AQuotationMarkInThePathBreaksTheSource) {
  EXPECT_EQ(reveal("/a\"b"), "error -2741: Expected “\"” but found end of script.");
}

TEST_F(InjectionTest, ABackslashInThePathIsAnEscape) {
  EXPECT_EQ(reveal("/a\\\\b"), "1");
  EXPECT_EQ(std::get<HostFile>(host.asked.at(0).direct->value).path, "/a\\b");
  EXPECT_EQ(reveal("/a\\b"), "error -2741: Expected “\"” but found unknown token.");
}

TEST_F(InjectionTest, AShellCommandInThePathIsRefused) {
  EXPECT_EQ(reveal("/a\" & (do shell script \"touch /tmp/x\") & \""),
            "error -10004: “do shell script” is not allowed in this script.");
  EXPECT_EQ(shellCommands, 0);
}

TEST_F(InjectionTest, AFileInThePathIsNotOpenedInATerminal) {
  EXPECT_EQ(reveal("/a\" as POSIX file\ntell application \"xterm\" to open \"/tmp/x"),
            "error -10004: “open” is not allowed in this script.");
  EXPECT_EQ(
      result("tell application \"Path Finder\" to open \"/a\" as POSIX file", Author::application),
      "1");
}

TEST_F(InjectionTest, ScriptsInThePathAreRefused) {
  EXPECT_EQ(reveal("/a\" & (run script \"do shell script \\\"touch /tmp/x\\\"\") & \""),
            "error -10004: “run script” is not allowed in this script.");
  EXPECT_EQ(shellCommands, 0);
}

TEST_F(InjectionTest, OtherCommandsInThePathAreRefused) {
  EXPECT_EQ(reveal("/a\" as POSIX file\ntell application \"Finder\" to delete \"/home"),
            "error -10004: “delete” is not allowed in this script.");
}

TEST_F(InjectionTest, ATerminalGoesToTheFolder) {
  EXPECT_EQ(terminal("cd '/home/a b'"), "1");
  EXPECT_EQ(terminal("cd ~"), "1");
  EXPECT_EQ(scriptsDone(), 2);
}

TEST_F(InjectionTest, AnApostropheInThePathDoesNotReachTheShell) {
  EXPECT_EQ(terminal("cd '/home/it's'"),
            "error -10004: “do script” is not allowed in this script.");
  EXPECT_EQ(terminal("cd '/a'; touch /tmp/x; ''"),
            "error -10004: “do script” is not allowed in this script.");
}

TEST_F(InjectionTest, ALineFeedInThePathDoesNotReachTheShell) {
  EXPECT_EQ(terminal("cd '/a\ntouch x'"),
            "error -10004: “do script” is not allowed in this script.");
}

TEST_F(InjectionTest, ACommandBesideTheFolderIsRefused) {
  EXPECT_EQ(terminal("cd ~\" as text)\ndo script (\"touch /tmp/x"),
            "error -10004: “do script” is not allowed in this script.");
}

TEST_F(InjectionTest, AUsersOwnScriptMayRunShellCommands) {
  EXPECT_EQ(result("do shell script \"ls\""), "missing value");
  EXPECT_EQ(shellCommands, 1);
}

} // namespace
} // namespace tavrel::script
