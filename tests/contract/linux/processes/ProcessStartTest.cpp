#include "platform/linux/processes/ProcessStart.h"

#include "platform/linux/processes/ProgramSearch.h"
#include "platform/linux/system/FileDescriptor.h"
#include "support/ScratchFolders.h"
#include "support/WaitFor.h"

#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

/// A signal that the C library keeps to itself; whoever started us may have it ignored.
constexpr int librarySignal = 32;

/// Past the C library, which refuses it.
void setLibrarySignal(void (*handler)(int)) {
  struct {
    void (*handler)(int);
    unsigned long flags;
    void (*restorer)();
    std::uint64_t mask;
  } const action{handler, 0, nullptr, 0};
  ASSERT_EQ(::syscall(SYS_rt_sigaction, librarySignal, &action, nullptr, sizeof action.mask), 0);
}

class ProcessStartTest : public ::testing::Test {
protected:
  /// Writes a program whose standard output becomes the text that is returned once it ended.
  std::string outputOf(const std::string& script, std::vector<std::string> arguments = {},
                       const std::string& folder = {},
                       std::map<std::string, std::string> environment = {}) {
    fs::remove(output);
    write(program, "#!/bin/sh\nexec >" + output.string() + ".part\n" + script + "\nmv " +
                       output.string() + ".part " + output.string() + "\n");
    ::chmod(program.c_str(), 0755);
    arguments.insert(arguments.begin(), "program");
    EXPECT_FALSE(startDetachedProcess({program.string(), arguments, folder, environment}));
    EXPECT_TRUE(waitFor([&] { return fs::exists(output); }));
    return read(output);
  }

  ScratchFolder scratch;
  fs::path program = scratch.path() / "program with blanks; and $(more)";
  fs::path output = scratch.path() / "output";
};

TEST_F(ProcessStartTest, ArgumentsGoThroughAsTheyAre) {
  EXPECT_EQ(outputOf("printf '%s|' \"$@\"", {"a b", "", "$(x)", "'\"", "line\nfeed"}),
            "a b||$(x)|'\"|line\nfeed|");
}

TEST_F(ProcessStartTest, StartsInTheFolder) {
  fs::create_directory(scratch.path() / "here");
  EXPECT_EQ(outputOf("pwd", {}, (scratch.path() / "here").string()),
            (scratch.path() / "here").string() + "\n");
}

TEST_F(ProcessStartTest, StartsAtHomeWhereThereIsOne) {
  const std::string home = ::getenv("HOME");
  ::setenv("HOME", scratch.path().c_str(), 1);
  EXPECT_EQ(outputOf("pwd"), scratch.path().string() + "\n");
  ::setenv("HOME", "/nonexistent", 1);
  EXPECT_EQ(outputOf("pwd"), "/\n");
  ::setenv("HOME", home.c_str(), 1);
}

TEST_F(ProcessStartTest, TheEnvironmentIsOursWithoutWhatIsMeantForUs) {
  ::setenv("DESKTOP_STARTUP_ID", "ours", 1);
  ::setenv("TAVREL_PRIVATE", "ours", 1);
  ::setenv("PUBLIC", "public", 1);
  EXPECT_EQ(outputOf("echo $PUBLIC,$TAVREL_PRIVATE,$DESKTOP_STARTUP_ID,$TOKEN", {}, {},
                     {{"TOKEN", "new"}}),
            "public,,,new\n");
  EXPECT_EQ(outputOf("echo $PUBLIC", {}, {}, {{"PUBLIC", "other"}}), "other\n");
  for (const char* name : {"DESKTOP_STARTUP_ID", "TAVREL_PRIVATE", "PUBLIC"})
    ::unsetenv(name);
}

TEST_F(ProcessStartTest, StandardInputIsEmptyAndNoOtherFileIsOpen) {
  const FileDescriptor leaking(::open("/dev/null", O_RDONLY)); // not closed on exec by itself
  ASSERT_GT(leaking.get(), 2);
  EXPECT_EQ(outputOf("cat; ls /proc/$$/fd | sort -n | tr '\\n' ' '").substr(0, 6), "0 1 2 ");
  EXPECT_EQ(read(output).find(std::to_string(leaking.get()) + " "), std::string::npos);
}

TEST_F(ProcessStartTest, TheProgramLeadsNoSessionOfOursAndIsNotOurChild) {
  const std::string told = outputOf("sed 's/.*) //' /proc/$$/stat | cut -d' ' -f2,4");
  int parent = 0;
  int session = 0;
  ASSERT_EQ(std::sscanf(told.c_str(), "%d %d", &parent, &session), 2);
  EXPECT_NE(parent, ::getpid());
  EXPECT_NE(session, ::getsid(0));
}

TEST_F(ProcessStartTest, NoDeadChildIsLeft) {
  outputOf("true");
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

TEST_F(ProcessStartTest, SignalsAreAsAtLogIn) {
  ::signal(SIGUSR1, SIG_IGN);
  setLibrarySignal(SIG_IGN);
  sigset_t blocked;
  ::sigemptyset(&blocked);
  ::sigaddset(&blocked, SIGUSR2);
  ::pthread_sigmask(SIG_BLOCK, &blocked, nullptr);
  const std::string told = outputOf("grep -E '^Sig(Blk|Ign)' /proc/self/status");
  ::pthread_sigmask(SIG_UNBLOCK, &blocked, nullptr);
  ::signal(SIGUSR1, SIG_DFL);
  setLibrarySignal(SIG_DFL);
  EXPECT_EQ(told, "SigBlk:\t0000000000000000\nSigIgn:\t0000000000000000\n");
}

TEST_F(ProcessStartTest, WhatCannotRunIsToldAndLeavesNothing) {
  EXPECT_EQ(startDetachedProcess({"/nonexistent/program", {"program"}, {}, {}}),
            std::errc::no_such_file_or_directory);
  write(program, "echo no interpreter line\n");
  EXPECT_EQ(startDetachedProcess({program.string(), {"program"}, {}, {}}),
            std::errc::permission_denied);
  ::chmod(program.c_str(), 0755);
  EXPECT_EQ(startDetachedProcess({program.string(), {"program"}, {}, {}}),
            std::errc::executable_format_error);
  EXPECT_EQ(startDetachedProcess({"/bin/true", {"true"}, "/nonexistent", {}}),
            std::errc::no_such_file_or_directory);
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
}

TEST_F(ProcessStartTest, AProgramIsFoundByItsNameOrPath) {
  write(program, "");
  EXPECT_FALSE(findProgram(program.string()));
  ::chmod(program.c_str(), 0755);
  EXPECT_EQ(findProgram(program.string()), program.string());
  EXPECT_TRUE(findProgram("sh").value_or("").ends_with("/sh"));
  for (const char* none : {"", "no-such-program-anywhere", "./sh", "/bin", "bin/sh"})
    EXPECT_FALSE(findProgram(none)) << none;
}

} // namespace
} // namespace tavrel
