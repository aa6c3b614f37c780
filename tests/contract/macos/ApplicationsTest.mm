#include "contract/ApplicationsContract.h"

#include "contract/macos/Skipping.h"
#include "platform/macos/MacApplications.h"

#include <unistd.h>

namespace tavrel {
namespace {

struct MacApplicationsWorld {
  MacApplicationsWorld() { skipTest("a session always has applications of its own"); }
  Applications& applications() { return adapter; }
  RunningApplication start(const std::string&) { return {}; }
  void end(const RunningApplication&) {}
  bool eventually(const std::function<bool()>& condition) { return condition(); }

  MacApplications adapter;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, ApplicationsContract, MacApplicationsWorld);

TEST(MacApplications, EachIsListedOnceAndHasAPath) {
  MacApplications applications;
  std::vector<std::int32_t> processes;
  for (const RunningApplication& each : applications.launched()) {
    EXPECT_TRUE(each.path.value_or("").starts_with('/')) << each.name.value_or("(none)");
    processes.push_back(each.processIdentifier);
  }
  const std::size_t count = processes.size();
  std::ranges::sort(processes);
  processes.erase(std::ranges::unique(processes).begin(), processes.end());
  EXPECT_EQ(processes.size(), count);
}

TEST(MacApplications, AProcessThatIsNotThereIsNeitherKnownNorBroughtToTheFront) {
  MacApplications applications;
  EXPECT_FALSE(applications.processInformation({}));
  EXPECT_FALSE(applications.bringToFront({}));
}

} // namespace
} // namespace tavrel
