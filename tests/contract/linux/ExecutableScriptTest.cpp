#include "platform/linux/ExecutableScript.h"

#include "support/ScratchFolders.h"
#include "support/WaitFor.h"

#include <gmock/gmock.h>
#include <sys/wait.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ExecutableScriptTest : public ::testing::Test {
protected:
  int run(const std::string& body, const std::vector<std::string>& files = {},
          const std::string& text = {}) {
    std::ofstream(program) << "#!/bin/sh\n" << body << "\n";
    ::chmod(program.c_str(), 0755);
    return runExecutableScript({program.string(), files, text, "Editor"},
                               {[this] { return stops && fs::exists(output); },
                                [this](const std::string& line) { lines.push_back(line); }});
  }
  [[nodiscard]] std::string result() const {
    std::ifstream file(output, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  [[nodiscard]] std::string to() const { return " >'" + output.string() + "'"; }

  ScratchFolder scratch;
  fs::path program = scratch.path() / "a script; with 'signs'";
  fs::path output = scratch.path() / "output";
  std::vector<std::string> lines;
  bool stops = false;
};

TEST_F(ExecutableScriptTest, TheFilesAreItsArguments) {
  EXPECT_EQ(run("printf '%s|' \"$@\"" + to(), {"/a b", "/c\nd", "/$(e)"}), 0);
  EXPECT_EQ(result(), "/a b|/c\nd|/$(e)|");
}

TEST_F(ExecutableScriptTest, TheFilesStandInAFileToo) {
  run("cat \"$TAVREL_SELECTION_FILES\"" + to(), {"/a b", "/c\nd"});
  EXPECT_EQ(result(), std::string("/a b\0/c\nd\0", 10));
}

TEST_F(ExecutableScriptTest, TheFileOfTheFilesIsGoneAfterwards) {
  run("printf %s \"$TAVREL_SELECTION_FILES\"" + to(), {"/a"});
  EXPECT_FALSE(result().empty());
  EXPECT_FALSE(fs::exists(result()));
}

TEST_F(ExecutableScriptTest, TheTextIsItsInput) {
  run("cat" + to(), {}, "one\ntwo");
  EXPECT_EQ(result(), "one\ntwo");
}

TEST_F(ExecutableScriptTest, AScriptNeedNotReadItsInput) {
  EXPECT_EQ(run("exit 3", {}, std::string(std::size_t{10} << 20U, 'x')), 3);
}

TEST_F(ExecutableScriptTest, LongInputArrivesWhole) {
  run("wc -c" + to(), {}, std::string(std::size_t{10} << 20U, 'x'));
  EXPECT_EQ(std::stol(result()), 10L << 20);
}

TEST_F(ExecutableScriptTest, ItKnowsTheHostApplication) {
  run("printf %s \"$TAVREL_HOST_APP\"" + to());
  EXPECT_EQ(result(), "Editor");
}

TEST_F(ExecutableScriptTest, LinesOfStandardErrorAreReported) {
  run("echo one >&2; printf 'two\\nthree' >&2; echo lost");
  EXPECT_THAT(lines, ElementsAre("one", "two", "three"));
}

TEST_F(ExecutableScriptTest, ALineWithoutEndComesInPieces) {
  run("head -c 10000 /dev/zero | tr '\\0' x >&2");
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0].size() + lines[1].size() + lines[2].size(), 10000U);
}

TEST_F(ExecutableScriptTest, AKilledScriptIsAFailure) {
  EXPECT_EQ(run("kill -9 $$"), -1);
}

TEST_F(ExecutableScriptTest, WhatCannotRunIsAFailure) {
  EXPECT_EQ(runExecutableScript({"/nonexistent", {}, {}, {}}, {[] { return false; }, nullptr}), -1);
}

TEST_F(ExecutableScriptTest, StoppingEndsWhatItStartedToo) {
  stops = true;
  EXPECT_EQ(run("sleep 1000 & echo $!" + to() + "; wait"), -1);
  const pid_t child = std::stoi(result());
  EXPECT_TRUE(waitFor([&] { return ::kill(child, 0) != 0; }));
}

TEST_F(ExecutableScriptTest, AScriptThatIgnoresItsEndIsKilled) {
  stops = true;
  EXPECT_EQ(run("trap '' TERM; echo x" + to() + "; while :; do sleep 1; done"), -1);
}

TEST_F(ExecutableScriptTest, NoDeadChildIsLeft) {
  run("true");
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

} // namespace
} // namespace tavrel
