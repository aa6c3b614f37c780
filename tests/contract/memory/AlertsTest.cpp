#include "contract/AlertsContract.h"

#include "platform/memory/MemoryAlerts.h"

namespace tavrel {
namespace {

class MemoryAlertsWorld {
public:
  AlertAnswer answer(const AlertPanel& panel, AlertDeed deed) {
    switch (deed) {
    case AlertDeed::pressDefault:
      alerts_.control.answers = {AlertAnswer::standard};
      break;
    case AlertDeed::pressAlternate:
      alerts_.control.answers = {AlertAnswer::alternate};
      break;
    case AlertDeed::pressOther:
      alerts_.control.answers = {AlertAnswer::other};
      break;
    case AlertDeed::escape:
    case AlertDeed::close:
      break;
    }
    return alerts_.run(panel);
  }

private:
  MemoryAlerts alerts_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, AlertsContract, MemoryAlertsWorld);

TEST(MemoryAlerts, WritesDownWhatIsShown) {
  MemoryAlerts alerts;
  (void)alerts.run({.title = "T", .message = "M", .defaultButton = "OK"});
  ASSERT_EQ(alerts.control.shown.size(), 1U);
  EXPECT_EQ(alerts.control.shown[0].message, "M");
}

} // namespace
} // namespace tavrel
