#include "WorkspaceContract.h"

#include "platform/memory/MemoryWorkspace.h"

namespace tavrel {
namespace {

class MemoryWorkspaceWorld {
public:
  Workspace& workspace() { return workspace_; }
  std::string document() { return "/documents/text"; }
  std::string orphan() {
    workspace_.control.opensFiles = false;
    return "/documents/orphan";
  }
  std::string missing() {
    workspace_.control.opensFiles = false;
    return "/documents/missing";
  }
  std::string url() { return "http://example.org/"; }
  std::string orphanUrl() {
    workspace_.control.opensUrls = false;
    return "unknown:thing";
  }
  std::string application() { return "/applications/editor"; }
  std::string brokenApplication() {
    workspace_.control.launchStatus = -10827;
    return "/applications/broken";
  }
  std::string missingApplication() {
    workspace_.control.launchStatus = -10814;
    return "/applications/missing";
  }
  bool wasHanded(const std::vector<std::string>& urls) {
    std::vector<std::string> handed = workspace_.control.openedUrls;
    for (const std::string& path : workspace_.control.openedFiles)
      handed.push_back(fileUrlOfPath(path, PathIs::file));
    for (const LaunchRequest& launch : workspace_.control.launches)
      handed.insert(handed.end(), launch.itemUrls.begin(), launch.itemUrls.end());
    return handed == urls;
  }

private:
  MemoryWorkspace workspace_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, WorkspaceContract, MemoryWorkspaceWorld);

TEST(MemoryWorkspace, WritesDownWhatIsToBeMoved) {
  MemoryWorkspace workspace;
  EXPECT_TRUE(workspace.performFileOperation(FileOperation::copy, "/from", "/to", {"a", "b"}));
  workspace.control.fileOperationsSucceed = false;
  EXPECT_FALSE(workspace.performFileOperation(FileOperation::move, "/to", "/from", {"c"}));
  const std::vector<MemoryWorkspace::FileRequest> expected = {
      {FileOperation::copy, "/from", "/to", {"a", "b"}},
      {FileOperation::move, "/to", "/from", {"c"}}};
  EXPECT_EQ(workspace.control.fileRequests, expected);
}

} // namespace
} // namespace tavrel
