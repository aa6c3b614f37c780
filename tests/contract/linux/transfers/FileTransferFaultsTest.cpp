#include "contract/linux/transfers/FaultyCalls.h"
#include "contract/linux/transfers/FileTransferFixture.h"

#include "platform/linux/transfers/TransferJournal.h"

#include <QtGlobal>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <sys/wait.h>

namespace tavrel {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::vector<std::string> names{"tree", "second"};

std::vector<std::string> hiddenIn(const fs::path& folder) {
  std::vector<std::string> found;
  for (const auto& each : fs::directory_iterator(folder))
    if (each.path().filename().string().starts_with(".tavrel"))
      found.push_back(each.path().filename().string());
  return found;
}

/// Permissions and times are left out: there are file systems that refuse to set them.
std::map<std::string, std::string> contentsOf(const fs::path& folder) {
  std::map<std::string, std::string> contents;
  for (const auto& each : fs::recursive_directory_iterator(folder))
    contents[fs::relative(each.path(), folder)] = each.is_symlink()
                                                      ? fs::read_symlink(each.path()).string()
                                                  : each.is_regular_file() ? read(each.path())
                                                                           : "";
  return contents;
}

/// A transfer of which one system call after the other goes wrong.
class FaultyTransfer : public ::testing::TestWithParam<Fault> {
protected:
  /// Calls `look` with what the transfer said, after each that had a fault.
  void sweep(FileOperation operation, const std::function<void(const std::string&)>& look) {
    bool wasReached = true;
    for (int at = 1; wasReached && !HasFailure(); ++at) {
      const ScratchFolder scratch;
      from = scratch.path() / "from";
      to = scratch.path() / "to";
      const SmallDisk disk(to, "size=1m");
      if (!disk.isMounted())
        GTEST_SKIP() << "file systems cannot be mounted here";
      fillWithEverything(from);
      whole = contentsOf(from);
      const std::string said = transfer(operation, at);
      wasReached = faultyCalls.count >= at;
      SCOPED_TRACE("call " + std::to_string(at) + ", " + faultyCalls.name + ": " + said);
      look(said);
    }
  }

  std::string transferWithFault(FileOperation operation, int at) {
    faultyCalls = {.fault = GetParam(), .at = at, .hasLinks = hasLinks, .isActive = true};
    const auto said = transferFiles(operation, from.string(), to.string(), names, journal());
    faultyCalls.isActive = false;
    return said.value_or("");
  }
  [[nodiscard]] std::string journal() const { return from.parent_path() / "journal"; }

  [[nodiscard]] bool isWholeIn(const fs::path& folder) const {
    return fs::exists(folder) && std::ranges::includes(contentsOf(folder), whole);
  }
  void expectNothingHiddenIsUntold(const std::string& said) const {
    for (const fs::path& folder : {from, to})
      for (const std::string& name : hiddenIn(folder))
        EXPECT_THAT(said, HasSubstr((folder / name).string()));
  }

  virtual std::string transfer(FileOperation operation, int at) {
    return transferWithFault(operation, at);
  }

  bool hasLinks = true;
  fs::path from;
  fs::path to;
  std::map<std::string, std::string> whole;
};

TEST_P(FaultyTransfer, MovesOrLeavesEverything) {
  sweep(move, [this](const std::string& said) {
    EXPECT_TRUE(isWholeIn(from) || isWholeIn(to));
    EXPECT_TRUE(!said.empty() || (isWholeIn(to) && fs::is_empty(from)));
    EXPECT_TRUE(isWholeIn(from) || faultyCalls.name.find("sync") == std::string::npos)
        << "perhaps not on the disk";
    expectNothingHiddenIsUntold(said);
  });
}

TEST_P(FaultyTransfer, CopiesAndLeavesTheOriginals) {
  sweep(copy, [this](const std::string& said) {
    EXPECT_TRUE(isWholeIn(from));
    EXPECT_TRUE(!said.empty() || isWholeIn(to));
    expectNothingHiddenIsUntold(said);
  });
}

TEST_P(FaultyTransfer, MovesOrLeavesEverythingWhereThereAreNoHardLinks) {
  hasLinks = false;
  sweep(move, [this](const std::string& said) {
    EXPECT_TRUE(isWholeIn(from) || isWholeIn(to));
    expectNothingHiddenIsUntold(said);
  });
}

/// A transfer whose program is killed at one system call after the other, and starts again.
class KilledTransfer : public FaultyTransfer {
protected:
  std::string transfer(FileOperation operation, int at) override {
    const pid_t child = ::fork();
    if (child == 0) {
      (void)transferWithFault(operation, at);
      ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    faultyCalls.count = WEXITSTATUS(status) == killedStatus ? at : 0;
    std::string said;
    for (const std::string& line : finishInterruptedTransfers(journal()))
      said += line + "\n";
    return said;
  }
  void expectNothingIsLeft(const std::string& said) const {
    for (const fs::path& folder : {from, to})
      EXPECT_THAT(hiddenIn(folder), IsEmpty()) << said;
    EXPECT_TRUE(!fs::exists(journal()) || fs::is_empty(journal()));
  }
};

TEST_P(KilledTransfer, OfAMoveLeavesEverythingSomewhereInSight) {
  sweep(move, [this](const std::string& said) {
    EXPECT_TRUE(isWholeIn(from) || isWholeIn(to));
    expectNothingIsLeft(said);
  });
}

TEST_P(KilledTransfer, OfACopyLeavesTheOriginals) {
  sweep(copy, [this](const std::string& said) {
    EXPECT_TRUE(isWholeIn(from));
    expectNothingIsLeft(said);
  });
}

INSTANTIATE_TEST_SUITE_P(Kills, KilledTransfer, ::testing::Values(Fault::killed, Fault::cutOff));
INSTANTIATE_TEST_SUITE_P(Faults, FaultyTransfer,
                         ::testing::Values(Fault::failed, Fault::lost, Fault::full));

/// Many calls of one transfer go wrong, also those that put things back.
class RandomFaults : public FileTransferBetweenDisks {
protected:
  /// Whether a name is whole in one of the places.
  bool isSafe(const std::string& name, const std::vector<fs::path>& places) {
    return std::ranges::any_of(places, [&](const fs::path& place) {
      return fs::exists(fs::symlink_status(place / name)) &&
             contentsAt(place / name) == originals[name];
    });
  }
  static std::map<std::string, std::string> contentsAt(const fs::path& path) {
    return fs::is_directory(path) ? contentsOf(path)
                                  : std::map<std::string, std::string>{{"", read(path)}};
  }
  /// The folders in which a person finds files: also those that were told.
  std::vector<fs::path> placesIn(const std::string& said) const {
    std::vector<fs::path> places{from, to};
    for (const fs::path& folder : {from, to})
      for (const std::string& name : hiddenIn(folder))
        if (said.find((folder / name).string()) != std::string::npos)
          places.push_back(folder / name);
    return places;
  }
  void clear() {
    for (const fs::path& folder : {from, to})
      for (const auto& each : fs::directory_iterator(folder))
        fs::remove_all(each.path());
  }
  std::map<std::string, std::map<std::string, std::string>> originals;
};

TEST_F(RandomFaults, LoseNothing) {
  const int rounds = std::max(50, qEnvironmentVariableIntValue("TAVREL_TRANSFERS"));
  const auto journal = (scratch.path() / "journal").string();
  for (int round = 0; round < rounds && !HasFailure(); ++round) {
    std::mt19937 random(static_cast<unsigned>(round));
    fillWithEverything(from);
    for (const std::string& name : names)
      originals[name] = contentsAt(from / name);
    const auto oneIn = 10 + random() % 200;
    faultyCalls = {.isActive = true, .decide = [&] {
                     const Fault faults[]{Fault::failed, Fault::lost, Fault::full};
                     return random() % oneIn == 0 ? faults[random() % 3] : Fault::none;
                   }};
    const auto said = transferFiles(move, from.string(), to.string(), names, journal).value_or("");
    faultyCalls.isActive = false;
    SCOPED_TRACE("round " + std::to_string(round) + ": " + said);
    for (const std::string& name : names)
      EXPECT_TRUE(isSafe(name, placesIn(said))) << name;
    (void)finishInterruptedTransfers(journal);
    for (const std::string& name : names)
      EXPECT_TRUE(isSafe(name, {from, to})) << name << ", after the next start";
    clear();
  }
  std::printf("%d transfers under random faults\n", rounds);
}

} // namespace
} // namespace tavrel
