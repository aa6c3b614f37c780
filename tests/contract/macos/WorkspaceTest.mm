#include "contract/WorkspaceContract.h"

#include "contract/macos/Skipping.h"
#include "platform/macos/MacWorkspace.h"
#include "support/TemporaryFolder.h"

namespace tavrel {
namespace {

class MacWorkspaceWorld {
public:
  MacWorkspaceWorld() {
    skipTests({"AFileGoesToItsApplication", "AFileThatNothingOpensIsRefused",
               "AUrlGoesToItsApplication", "AUrlThatNothingOpensIsRefused",
               "DocumentsGoTogetherAndInOrderToTheNamedApplication",
               "AnApplicationIsStartedWithoutDocuments", "AnApplicationThatCannotBeStartedIsTold"},
              "applications would have to be made known to the system, which asks the person");
  }
  Workspace& workspace() { return adapter_; }
  std::string document() { return {}; }
  std::string orphan() { return {}; }
  std::string missing() { return "/nonexistent/file"; }
  std::string url() { return {}; }
  std::string orphanUrl() { return {}; }
  std::string application() { return {}; }
  std::string brokenApplication() { return {}; }
  std::string missingApplication() { return "/nonexistent/Tool.app"; }
  bool wasHanded(const std::vector<std::string>&) { return false; }

private:
  MacWorkspace adapter_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, WorkspaceContract, MacWorkspaceWorld);

class MacTransferTest : public ::testing::Test {
protected:
  MacTransferTest() {
    std::filesystem::create_directories(folder.path("from"));
    std::filesystem::create_directories(folder.path("to"));
    folder.write("from/a", "a");
    folder.write("from/b", "b");
  }
  bool transfer(FileOperation operation, const std::vector<std::string>& names) {
    return MacWorkspace().performFileOperation(operation, folder.path("from"), folder.path("to"),
                                               names);
  }
  [[nodiscard]] bool isThere(const std::string& name) const {
    return std::filesystem::exists(folder.path(name));
  }
  TemporaryFolder folder;
};

TEST_F(MacTransferTest, FilesAreMovedTogether) {
  EXPECT_TRUE(transfer(FileOperation::move, {"a", "b"}));
  EXPECT_FALSE(isThere("from/a") || isThere("from/b"));
  EXPECT_EQ(folder.read("to/a") + folder.read("to/b"), "ab");
}

TEST_F(MacTransferTest, FilesAreCopiedTogether) {
  EXPECT_TRUE(transfer(FileOperation::copy, {"a", "b"}));
  EXPECT_TRUE(isThere("from/a") && isThere("from/b"));
  EXPECT_EQ(folder.read("to/a") + folder.read("to/b"), "ab");
}

TEST_F(MacTransferTest, WhereOneCannotGoNoneGoes) {
  folder.write("to/b", "mine");
  for (const FileOperation operation : {FileOperation::move, FileOperation::copy}) {
    EXPECT_FALSE(transfer(operation, {"a", "b"}));
    EXPECT_FALSE(transfer(operation, {"a", "missing"}));
    EXPECT_FALSE(isThere("to/a"));
    EXPECT_EQ(folder.read("from/a") + folder.read("to/b"), "amine");
  }
}

TEST_F(MacTransferTest, NamesThatAreNoneAreRefused) {
  for (const std::vector<std::string>& names :
       std::vector<std::vector<std::string>>{{}, {""}, {"."}, {".."}, {"../from/a"}, {"a", "a"}})
    EXPECT_FALSE(transfer(FileOperation::copy, names));
}

TEST_F(MacTransferTest, AFolderDoesNotGoIntoItself) {
  std::filesystem::create_directories(folder.path("to/inner"));
  EXPECT_FALSE(MacWorkspace().performFileOperation(FileOperation::move, folder.path(),
                                                   folder.path("to/inner"), {"to"}));
  EXPECT_TRUE(isThere("to/inner"));
}

} // namespace
} // namespace tavrel
