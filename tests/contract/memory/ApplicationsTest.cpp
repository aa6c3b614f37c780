#include "ApplicationsContract.h"

#include "platform/memory/MemoryApplications.h"

namespace tavrel {
namespace {

class MemoryApplicationsWorld {
public:
  Applications& applications() { return applications_; }
  RunningApplication start(const std::string& name) {
    return applications_.control.start(name, "/applications/" + name);
  }
  void end(const RunningApplication& application) {
    applications_.control.end(application.serialNumber);
  }
  bool eventually(const std::function<bool()>& condition) { return condition(); }

private:
  MemoryApplications applications_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, ApplicationsContract, MemoryApplicationsWorld);

TEST(MemoryApplications, ADesktopMayRefuseAndTellOtherThings) {
  MemoryApplications applications;
  const RunningApplication alpha = applications.control.start("alpha", "/alpha");
  applications.control.refusesToBringForward = true;
  applications.control.information.emplace(alpha.processIdentifier,
                                           PropertyList::Dictionary{{"Flavor", 1}});
  EXPECT_FALSE(applications.bringToFront(alpha.serialNumber));
  EXPECT_EQ(applications.control.broughtToFront.size(), 1U);
  EXPECT_EQ(applications.processInformation(alpha.serialNumber)->find("Flavor")->integer(), 1);
}

} // namespace
} // namespace tavrel
