#include "platform/common/BoundedListing.h"

#include <gmock/gmock.h>

#include <future>

namespace tavrel {
namespace {

using std::chrono::milliseconds;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;

ListedFile plainFile(const std::string& name) {
  return {name, "shown " + name, false, FileKind::plain};
}

std::vector<FileKind> kindsOf(const std::vector<ListedFile>& files) {
  std::vector<FileKind> kinds;
  for (const ListedFile& file : files)
    kinds.push_back(file.kind);
  return kinds;
}

std::vector<std::string> aAndB() {
  return {"a", "b"};
}

/// What a file system keeps back until the test is over.
class KeptBack {
public:
  ~KeptBack() { end_.set_value(); }
  KeptBack() = default;
  KeptBack(const KeptBack&) = delete;
  KeptBack& operator=(const KeptBack&) = delete;
  [[nodiscard]] std::shared_future<void> wait() const { return wait_; }

private:
  std::promise<void> end_;
  std::shared_future<void> wait_ = end_.get_future().share();
};

TEST(BoundedListing, TellsWhatThereIsToTellOfEachName) {
  const auto files = listWithin({aAndB, plainFile}, milliseconds(20'000));
  EXPECT_THAT(files, ElementsAre(Field(&ListedFile::displayName, "shown a"),
                                 Field(&ListedFile::displayName, "shown b")));
  EXPECT_THAT(kindsOf(files), ElementsAre(FileKind::plain, FileKind::plain));
}

TEST(BoundedListing, AFolderWhoseNamesDoNotComeIsEmpty) {
  const KeptBack keptBack;
  const auto names = [wait = keptBack.wait()] {
    wait.wait();
    return std::vector<std::string>{"a"};
  };
  EXPECT_THAT(listWithin({names, plainFile}, milliseconds(10)), IsEmpty());
}

TEST(BoundedListing, ANameThatIsNotAnsweredForIsOfNoKind) {
  const KeptBack keptBack;
  const auto look = [wait = keptBack.wait()](const std::string& name) {
    if (name == "b")
      wait.wait();
    return plainFile(name);
  };
  const auto files = listWithin({aAndB, look}, milliseconds(200));
  EXPECT_THAT(kindsOf(files), ElementsAre(FileKind::plain, FileKind::none));
  EXPECT_EQ(files.back().displayName, "b");
}

TEST(BoundedListing, AnEmptyFolderIsEmptyAtOnce) {
  const auto none = [] { return std::vector<std::string>(); };
  EXPECT_THAT(listWithin({none, plainFile}, milliseconds(20'000)), IsEmpty());
}

} // namespace
} // namespace tavrel
