#include "platform/linux/images/IconLookups.h"
#include "support/Desktop.h"

#include <QThread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <vector>

namespace tavrel {
namespace {

/// A file system where some files keep whoever asks until it is let go.
class FileSystem {
public:
  FileIconFacts find(const std::string& path) {
    std::unique_lock lock(mutex_);
    asked_.push_back(path);
    if (path.starts_with("/dead"))
      alive_.wait(lock, [this] { return isAlive_; });
    FileIconFacts facts;
    facts.picture = path;
    return facts;
  }
  void revive() {
    const std::lock_guard lock(mutex_);
    isAlive_ = true;
    alive_.notify_all();
  }
  [[nodiscard]] std::size_t asked() {
    const std::lock_guard lock(mutex_);
    return asked_.size();
  }

private:
  std::mutex mutex_;
  std::condition_variable alive_;
  std::vector<std::string> asked_;
  bool isAlive_ = false;
};

class IconLookupsTest : public ::testing::Test {
protected:
  ~IconLookupsTest() override { files->revive(); }

  void ask(const std::string& path) {
    lookups.request(
        path, std::make_shared<const SpecialFolderIcons>(),
        [this](const FileIconFacts& facts) {
          answers.push_back(*facts.picture);
          inMainThread &= QThread::currentThread() == qApp->thread();
        },
        [this] { ++dropped; });
  }

  std::shared_ptr<FileSystem> files = std::make_shared<FileSystem>();
  IconLookups lookups{[kept = files](const std::string& path, const SpecialFolderIcons&) {
    return kept->find(path);
  }};
  std::vector<std::string> answers;
  bool inMainThread = true;
  int dropped = 0;
};

TEST_F(IconLookupsTest, AnswersComeInTheMainThread) {
  for (int i = 0; i < 100; ++i)
    ask("/file" + std::to_string(i));
  EXPECT_TRUE(eventually([&] { return answers.size() == 100; }));
  EXPECT_TRUE(inMainThread);
}

TEST_F(IconLookupsTest, ADeadFileSystemLeavesTheIconsOfOthersAlone) {
  ask("/dead/1");
  ask("/dead/2");
  EXPECT_TRUE(eventually([&] { return files->asked() == 2; }));
  ask("/file");
  ASSERT_TRUE(eventually([&] { return answers.size() == 1; }));
  EXPECT_EQ(answers.front(), "/file");
}

TEST_F(IconLookupsTest, AFileSystemThatAnswersAgainIsHeard) {
  ask("/dead/1");
  EXPECT_TRUE(eventually([&] { return files->asked() == 1; }));
  files->revive();
  EXPECT_TRUE(eventually([&] { return answers.size() == 1; }));
}

TEST_F(IconLookupsTest, AMomentIsEnoughForWhatComesAtOnce) {
  ask("/file");
  QElapsedTimer time;
  time.start();
  while (answers.empty() && time.elapsed() < 5000)
    lookups.waitBriefly([&] { return !answers.empty(); });
  EXPECT_EQ(answers.size(), 1U) << "without any event loop";
}

TEST_F(IconLookupsTest, ManyMomentsForADeadFileSystemAddUpToLittle) {
  ask("/dead");
  EXPECT_TRUE(eventually([&] { return files->asked() == 1; }));
  QElapsedTimer time;
  time.start();
  for (int paint = 0; paint < 100; ++paint)
    lookups.waitBriefly([] { return false; });
  EXPECT_LT(time.elapsed(), 1000) << "each for itself they would take more than two seconds";
}

TEST_F(IconLookupsTest, TheOldestOfTooManyQuestionsAreDropped) {
  for (int thread = 0; thread < 4; ++thread) {
    ask("/dead/" + std::to_string(thread));
    EXPECT_TRUE(eventually([&] { return files->asked() == static_cast<std::size_t>(thread) + 1; }));
  }
  for (int i = 0; i < 300; ++i)
    ask("/file" + std::to_string(i));
  EXPECT_EQ(dropped, 300 - 256);
  files->revive();
  EXPECT_TRUE(eventually([&] { return answers.size() == 260; }));
}

TEST_F(IconLookupsTest, NobodyIsToldOnceTheLookupsAreGone) {
  {
    IconLookups gone([kept = files](const std::string& path, const SpecialFolderIcons&) {
      return kept->find(path);
    });
    gone.request(
        "/dead", std::make_shared<const SpecialFolderIcons>(),
        [this](const FileIconFacts&) { answers.emplace_back(); }, [] {});
    EXPECT_TRUE(eventually([&] { return files->asked() == 1; }));
  }
  files->revive();
  ask("/file");
  ASSERT_TRUE(eventually([&] { return !answers.empty(); }));
  EXPECT_EQ(answers.front(), "/file");
}

} // namespace
} // namespace tavrel
