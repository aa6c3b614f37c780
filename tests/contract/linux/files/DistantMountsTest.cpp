#include "platform/linux/files/DistantMounts.h"

#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/files/LinuxFiles.h"
#include "platform/linux/files/MountPoints.h"
#include "platform/linux/images/IconChoice.h"
#include "platform/linux/places/RecentUsesFile.h"
#include "platform/linux/processes/ProgramSearch.h"
#include "platform/linux/services/ServiceFolders.h"
#include "support/DeadFileSystem.h"
#include "support/ScratchFolders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <future>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// A folder on which something that never answers is mounted at the worst moment.
class MountsThatCome : public ::testing::Test {
protected:
  void SetUp() override {
    fs::create_directory(folder);
    if (!DeadFileSystem(folder).isMounted())
      GTEST_SKIP() << "no rights to mount a file system here";
  }

  void mount() { dead_.emplace(folder); }

  /// What the question answers; nothing when it waits for the dead file system, which then goes.
  template <class Question> auto answerInTime(Question question) {
    auto answer = std::async(std::launch::async, std::move(question));
    const bool inTime = answer.wait_for(10s) == std::future_status::ready;
    dead_.reset();
    std::optional<decltype(answer.get())> result;
    if (inTime)
      result.emplace(answer.get());
    return result;
  }

  ScratchFolder scratch_;
  std::string folder = (scratch_.path() / "dead").string();

private:
  std::optional<DeadFileSystem> dead_;
};

TEST_F(MountsThatCome, OneIsSeenHoweverShortlyBeforeTheTableWasRead) {
  write(scratch_.path() / "file", "text");
  LinuxFiles files;
  for (int i = 0; i < 3; ++i) {
    EXPECT_TRUE(files.exists((scratch_.path() / "file").string()));
    mount();
    EXPECT_EQ(answerInTime([&] { return files.exists(folder + "/inside"); }), false);
  }
}

/// A table of mounts that something is mounted in while it is asked for the n-th time. It holds
/// another one all along, without which no path would be walked.
class TableThatChanges {
public:
  TableThatChanges(int when, std::function<void()> mount) : left_(when), mount_(std::move(mount)) {}
  std::shared_ptr<const std::set<std::string>> read() {
    if (--left_ == 0)
      mount_();
    auto points = distantMountPoints();
    points.insert("/elsewhere");
    return std::make_shared<const std::set<std::string>>(std::move(points));
  }
  [[nodiscard]] bool hasChanged() const { return left_ <= 0; }

private:
  int left_;
  std::function<void()> mount_;
};

TEST_F(MountsThatCome, OneThatComesWhileALinkIntoItsPlaceIsFollowedIsNotTouched) {
  const std::string path = (scratch_.path() / "far/link/inside").string();
  fs::create_directory(scratch_.path() / "shelf");
  fs::create_symlink("shelf", scratch_.path() / "far");
  fs::create_symlink("../dead", scratch_.path() / "shelf/link");
  bool changed = true;
  for (int when = 1; changed; ++when) {
    TableThatChanges table(when, [this] { mount(); });
    const auto point = answerInTime(
        [&] { return distantMountOf(path, FinalLink::follow, [&] { return table.read(); }); });
    changed = table.hasChanged();
    ASSERT_TRUE(point) << "it was waited for when it came at look " << when;
    EXPECT_EQ(*point, changed ? std::optional(folder) : std::nullopt) << "at look " << when;
    ASSERT_TRUE(changed || when > 5) << "the table is looked at for each component";
  }
}

/// What a menu asks on its way to the screen, where a link leads to what never answers.
class LinksIntoNowhere : public MountsThatCome {
protected:
  std::string linkAt(const std::string& name) {
    const fs::path link = scratch_.path() / name;
    fs::create_directories(link.parent_path());
    fs::create_symlink(folder + "/inside", link);
    return link.string();
  }

  template <class Question> auto answerOfTheDead(Question question) {
    mount();
    return answerInTime(std::move(question));
  }
};

TEST_F(LinksIntoNowhere, AFolderWhoseProgramIsOneIsAFolder) {
  (void)linkAt("bundle/AppRun");
  const std::string bundle = (scratch_.path() / "bundle").string();
  EXPECT_EQ(answerOfTheDead([&] { return LinuxFiles().kind(bundle); }), FileKind::directory);
}

TEST_F(LinksIntoNowhere, AnEntryThatIsOneIsNoApplicationAndTheOthersAre) {
  (void)linkAt("applications/lost.desktop");
  write(scratch_.path() / "applications/here.desktop",
        "[Desktop Entry]\nType=Application\nName=H\n");
  ApplicationRegistry registry({{scratch_.path().string()}, {}, {}});
  const auto known = answerOfTheDead([&] {
    registry.refresh();
    return registry.applications().size();
  });
  EXPECT_EQ(known, 1U);
  EXPECT_NE(registry.find("here.desktop"), nullptr);
}

TEST_F(LinksIntoNowhere, AFolderOfEntriesThatIsOneHoldsNone) {
  (void)linkAt("data");
  ApplicationRegistry registry({{(scratch_.path() / "data").string(), folder}, {folder}, {}});
  const auto known = answerOfTheDead([&] {
    registry.refresh();
    return registry.applications().size();
  });
  EXPECT_EQ(known, 0U);
}

TEST_F(LinksIntoNowhere, WhatIsMountedAmongTheEntriesIsNotEntered) {
  ASSERT_TRUE(fs::remove(folder));
  folder = (scratch_.path() / "applications/shared").string();
  fs::create_directories(folder);
  ApplicationRegistry registry({{scratch_.path().string()}, {}, {}});
  const auto known = answerOfTheDead([&] {
    registry.refresh();
    return registry.applications().size();
  });
  EXPECT_EQ(known, 0U);
}

TEST_F(LinksIntoNowhere, AListOfWhatWasUsedThatIsOneIsEmpty) {
  const std::string list = linkAt("recently-used.xbel");
  CachedRecentUses kept;
  EXPECT_EQ(answerOfTheDead([&] { return kept.read(list).size(); }), 0U);
}

TEST_F(LinksIntoNowhere, AProgramThatIsOneIsMissing) {
  const std::string program = linkAt("bin/program");
  const auto found = answerOfTheDead([&] { return findProgram(program); });
  ASSERT_TRUE(found);
  EXPECT_EQ(*found, std::nullopt);
}

TEST_F(LinksIntoNowhere, AFolderOfServicesThatIsOneHoldsNone) {
  const std::string services = linkAt("services");
  const auto found = answerOfTheDead([&] { return findService({services}, "shout"); });
  ASSERT_TRUE(found);
  EXPECT_EQ(*found, std::nullopt);
}

TEST_F(LinksIntoNowhere, AFolderWhoseIconIsToldByOneHasTheUsualIcon) {
  (void)linkAt("photos/.directory");
  const std::string photos = (scratch_.path() / "photos").string();
  const auto choice = answerOfTheDead([&] { return chooseIcon(photos, {}); });
  ASSERT_TRUE(choice);
  EXPECT_EQ(choice->themeNames.value(0), QStringLiteral("folder"));
}

} // namespace
} // namespace tavrel
