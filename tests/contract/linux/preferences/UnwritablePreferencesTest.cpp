#include "platform/linux/preferences/LinuxPreferences.h"

#include "platform/linux/system/FileDescriptor.h"
#include "support/ScratchFolders.h"

#include <algorithm>
#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

constexpr rlim_t fewBytes = 4096;
const std::string old = "<plist><dict><key>old</key><string>value</string></dict></plist>";

struct Outcome {
  int status = -1; ///< what the child returned
  std::string said;
};

/// Runs a function in a process of its own, whose limits and owner are its own to change. It may
/// say as much as a pipe holds.
Outcome inAChild(const std::function<int()>& run) {
  int ends[2];
  EXPECT_EQ(::pipe(ends), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    ::dup2(ends[1], STDERR_FILENO);
    ::_exit(run());
  }
  ::close(ends[1]);
  const FileDescriptor reading(ends[0]);
  Outcome outcome;
  char byte = 0;
  while (::read(reading.get(), &byte, 1) == 1)
    outcome.said += byte;
  int status = 0;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return outcome;
}

/// The folder of a user who may not write, or not read, the files in it.
class UnwritablePreferences : public ::testing::Test {
protected:
  /// 0 when a long value was refused, and is still pending.
  static int refusesALongValue(const fs::path& folder) {
    LinuxPreferences preferences(folder);
    preferences.setValue("d", "key", std::string(1'000'000, 'x'));
    const bool refused = !preferences.synchronize("d");
    const bool pending = preferences.value("d", "key").has_value();
    ::_exit(refused && pending ? 0 : 1); // not trying again at the end
  }

  static void expectOneLine(const Outcome& outcome, const std::string& reason) {
    EXPECT_EQ(outcome.status, 0) << outcome.said;
    EXPECT_EQ(std::count(outcome.said.begin(), outcome.said.end(), '\n'), 1) << outcome.said;
    EXPECT_NE(outcome.said.find(reason + "; nothing is written"), std::string::npos)
        << outcome.said;
  }

  static void expectOnlyTheOldFile(const fs::path& folder) {
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1) << "no temporary file is left";
    EXPECT_EQ(read(folder / "d.plist"), old);
  }

  ScratchFolder scratch;
};

TEST_F(UnwritablePreferences, AFileThatMayNotGrowLeavesTheOldOneWhole) {
  write(scratch.path() / "d.plist", old);
  const Outcome outcome = inAChild([&] {
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{fewBytes, fewBytes};
    return ::setrlimit(RLIMIT_FSIZE, &limit) != 0 ? 2 : refusesALongValue(scratch.path());
  });
  expectOneLine(outcome, "File too large");
  expectOnlyTheOldFile(scratch.path());
}

TEST_F(UnwritablePreferences, AFullDiskLeavesTheOldFileWhole) {
  const SmallDisk disk(scratch.path() / "disk", "size=64k");
  if (!disk.isMounted())
    GTEST_SKIP() << "mounting a small disk is not permitted here";
  write(scratch.path() / "disk/d.plist", old);
  expectOneLine(inAChild([&] { return refusesALongValue(scratch.path() / "disk"); }),
                "No space left on device");
  expectOnlyTheOldFile(scratch.path() / "disk");
}

TEST_F(UnwritablePreferences, AFileThatMayNotBeReadReadsAsEmptyAndIsNeverOverwritten) {
  write(scratch.path() / "d.plist", old);
  ::chmod((scratch.path() / "d.plist").c_str(), 0);
  AsPlainPerson::give(scratch.path()); // so that only the file itself says no
  const auto before = listing(scratch.path());
  const Outcome outcome = inAChild([&] {
    if (::geteuid() == 0 && !AsPlainPerson::becomeForGood())
      return 2;
    LinuxPreferences preferences(scratch.path());
    if (preferences.value("d", "old"))
      return 3;
    preferences.setValue("d", "key", 1);
    return preferences.synchronize("d") ? 4 : 0; // and once more at the end
  });
  EXPECT_EQ(outcome.status, 0) << outcome.said;
  EXPECT_NE(outcome.said.find("Permission denied; it counts as empty"), std::string::npos);
  EXPECT_EQ(listing(scratch.path()), before);
}

} // namespace
} // namespace tavrel
