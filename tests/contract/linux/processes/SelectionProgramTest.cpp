#include "platform/linux/processes/SelectionProgram.h"

#include "support/ScratchFolders.h"
#include "support/WaitFor.h"

#include <csignal>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/wait.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Ending = ProgramOutcome::Ending;

MATCHER_P(ExitedWith, status, "") {
  return arg.ending == Ending::exited && arg.number == status;
}
MATCHER(WasStopped, "") {
  return arg.ending == Ending::stopped;
}

/// Whether a process runs; one that is dead but not yet reaped does not.
bool isAlive(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  const std::string stat{std::istreambuf_iterator<char>(file), {}};
  const std::size_t name = stat.rfind(") ");
  return name != std::string::npos && stat[name + 2] != 'Z';
}

class SelectionProgramTest : public ::testing::Test {
protected:
  ProgramOutcome run(const std::string& body, const std::vector<std::string>& files = {},
                     const std::string& text = {}) {
    std::ofstream(program) << "#!/bin/sh\n" << body << "\n";
    ::chmod(program.c_str(), 0755);
    return runSelectionProgram({program.string(), files, text, "Editor"},
                               {[this] { return stops && fs::exists(output); },
                                [this](const std::string& line) { lines.push_back(line); }});
  }
  [[nodiscard]] std::string result() const {
    std::ifstream file(output, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  [[nodiscard]] std::string to() const { return " >'" + output.string() + "'"; }

  static std::size_t openDescriptors() {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()));
  }
  [[nodiscard]] pid_t startedProcess() const { return std::stoi(result()); }

  ScratchFolder scratch;
  fs::path program = scratch.path() / "a script; with 'signs'";
  fs::path output = scratch.path() / "output";
  std::vector<std::string> lines;
  bool stops = false;
};

TEST_F(SelectionProgramTest, TheFilesAreItsArguments) {
  EXPECT_THAT(run("printf '%s|' \"$@\"" + to(), {"/a b", "/c\nd", "/$(e)"}), ExitedWith(0));
  EXPECT_EQ(result(), "/a b|/c\nd|/$(e)|");
}

TEST_F(SelectionProgramTest, TheFilesStandInAFileToo) {
  run("cat \"$TAVREL_SELECTION_FILES\"" + to(), {"/a b", "/c\nd"});
  EXPECT_EQ(result(), std::string("/a b\0/c\nd\0", 10));
}

TEST_F(SelectionProgramTest, TheFileOfTheFilesIsGoneAfterwards) {
  run("printf %s \"$TAVREL_SELECTION_FILES\"" + to(), {"/a"});
  EXPECT_FALSE(result().empty());
  EXPECT_FALSE(fs::exists(result()));
}

TEST_F(SelectionProgramTest, TheTextIsItsInput) {
  run("cat" + to(), {}, "one\ntwo");
  EXPECT_EQ(result(), "one\ntwo");
}

TEST_F(SelectionProgramTest, AScriptNeedNotReadItsInput) {
  EXPECT_THAT(run("exit 3", {}, std::string(std::size_t{10} << 20U, 'x')), ExitedWith(3));
}

TEST_F(SelectionProgramTest, LongInputArrivesWhole) {
  run("wc -c" + to(), {}, std::string(std::size_t{10} << 20U, 'x'));
  EXPECT_EQ(std::stol(result()), 10L << 20);
}

TEST_F(SelectionProgramTest, ItKnowsTheHostApplication) {
  run("printf %s \"$TAVREL_HOST_APP\"" + to());
  EXPECT_EQ(result(), "Editor");
}

TEST_F(SelectionProgramTest, LinesOfStandardErrorAreReported) {
  run("echo one >&2; printf 'two\\nthree' >&2; echo lost");
  EXPECT_THAT(lines, ElementsAre("one", "two", "three"));
}

TEST_F(SelectionProgramTest, ALineWithoutEndComesInPieces) {
  run("head -c 10000 /dev/zero | tr '\\0' x >&2");
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0].size() + lines[1].size() + lines[2].size(), 10000U);
}

TEST_F(SelectionProgramTest, AKilledScriptIsAFailure) {
  const ProgramOutcome outcome = run("kill -9 $$");
  EXPECT_EQ(outcome.ending, Ending::signalled);
  EXPECT_EQ(outcome.number, SIGKILL);
}

TEST_F(SelectionProgramTest, WhatCannotRunIsAFailure) {
  const ProgramOutcome outcome = runSelectionProgram({"/nonexistent", {}, {}, {}}, {});
  EXPECT_EQ(outcome.ending, Ending::notStarted);
  EXPECT_EQ(outcome.number, ENOENT);
}

TEST_F(SelectionProgramTest, StoppingEndsWhatItStartedToo) {
  stops = true;
  EXPECT_THAT(run("(sleep 1000 & echo $!" + to() + "; wait) & wait"), WasStopped());
  EXPECT_TRUE(waitFor([&] { return !isAlive(startedProcess()); }));
}

TEST_F(SelectionProgramTest, AScriptThatIgnoresItsEndIsKilled) {
  stops = true;
  EXPECT_THAT(run("trap '' TERM; echo x" + to() + "; while :; do sleep 1; done"), WasStopped());
}

TEST_F(SelectionProgramTest, WhatItStartedIsKilledWhenItIgnoresItsEnd) {
  stops = true;
  EXPECT_THAT(run("(trap '' TERM; sleep 1000 & echo $!" + to() + "; wait) & wait"), WasStopped());
  EXPECT_TRUE(waitFor([&] { return !isAlive(startedProcess()); }));
}

TEST_F(SelectionProgramTest, WhatItLeavesBehindIsNotWaitedFor) {
  EXPECT_THAT(run("sleep 1000 & echo $!" + to()), ExitedWith(0));
  EXPECT_TRUE(isAlive(startedProcess()));
  ::kill(startedProcess(), SIGKILL);
}

TEST_F(SelectionProgramTest, AScriptMayCloseItsInputAndGoOn) {
  EXPECT_THAT(run("exec <&-; sleep 0.2; exit 4", {}, std::string(std::size_t{10} << 20U, 'x')),
              ExitedWith(4));
}

TEST_F(SelectionProgramTest, AFileNameThatIsNoTextArrivesAsItIs) {
  EXPECT_THAT(run("printf %s \"$1\"" + to(), {"/caf\xe9"}), ExitedWith(0));
  EXPECT_EQ(result(), "/caf\xe9");
}

TEST_F(SelectionProgramTest, WithoutAnInterpreterLineNoShellStepsIn) {
  std::ofstream(program) << "echo x" << to() << "\n";
  ::chmod(program.c_str(), 0755);
  const ProgramOutcome outcome = runSelectionProgram({program.string(), {}, {}, {}}, {});
  EXPECT_EQ(outcome.ending, Ending::notStarted);
  EXPECT_EQ(outcome.number, ENOEXEC);
  EXPECT_FALSE(fs::exists(output));
}

TEST_F(SelectionProgramTest, AFloodOfErrorsWithoutEndIsStopped) {
  stops = true;
  EXPECT_THAT(run("echo x" + to() + "; exec cat /dev/zero >&2"), WasStopped());
  EXPECT_LE(lines.front().size(), 4096U);
}

TEST_F(SelectionProgramTest, ItStartsWithNoSignalIgnored) {
  const auto before = std::signal(SIGUSR1, SIG_IGN);
  run("grep SigIgn /proc/self/status" + to());
  std::signal(SIGUSR1, before);
  EXPECT_EQ(result(), "SigIgn:\t0000000000000000\n");
}

TEST_F(SelectionProgramTest, ItSeesNoFileOfOurs) {
  const int ours = ::open("/dev/null", O_RDONLY); // one that somebody forgot to mark
  run("[ -e /proc/self/fd/" + std::to_string(ours) + " ] || echo none" + to());
  ::close(ours);
  EXPECT_EQ(result(), "none\n");
}

TEST_F(SelectionProgramTest, NoDescriptorIsLeft) {
  run("true");
  const std::size_t before = openDescriptors();
  run("exit 1", {"/a"}, std::string(std::size_t{1} << 20U, 'x'));
  (void)runSelectionProgram({"/nonexistent", {}, {}, {}}, {});
  EXPECT_EQ(openDescriptors(), before);
}

TEST_F(SelectionProgramTest, NoDeadChildIsLeft) {
  run("true");
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

} // namespace
} // namespace tavrel
