#include "contract/NotificationCenterContract.h"

#import "contract/macos/MacTurns.h"
#include "contract/macos/Skipping.h"
#include "platform/macos/MacDistributedNotificationCenter.h"

namespace tavrel {
namespace {

class MacNotificationWorld {
public:
  MacNotificationWorld() {
    if (!hearsWithoutNames())
      skipTest("this system tells other programs' notifications only to who names them");
  }
  NotificationCenter& center() { return adapter_; }
  void deliver() { letEventsHappen(0.5); }

private:
  bool hearsWithoutNames() {
    bool heard = false;
    const ObserverId probe = adapter_.addObserver({}, [&](const Notification&) { heard = true; });
    adapter_.post({"qorvane.tavrel.probe", std::nullopt, {}});
    letEventsHappen(0.5);
    adapter_.removeObserver(probe);
    return heard;
  }

  MacDistributedNotificationCenter adapter_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, NotificationCenterContract, MacNotificationWorld);

TEST(MacNotifications, AnObserverHearsWhatItNames) {
  MacDistributedNotificationCenter center;
  std::vector<std::string> heard;
  (void)center.addObserver({"qorvane.tavrel.test", "me"}, [&](const Notification& each) {
    heard.push_back(each.name + " " + each.object.value_or("(none)"));
  });
  center.post({"qorvane.tavrel.test", "you", {}});
  center.post({"qorvane.tavrel.test", "me", {{"key", 1}}});
  EXPECT_TRUE(eventually([&] { return !heard.empty(); }));
  EXPECT_THAT(heard, ::testing::ElementsAre("qorvane.tavrel.test me"));
}

TEST(MacNotifications, AnObserverThatIsGoneHearsNothing) {
  bool heard = false;
  {
    MacDistributedNotificationCenter center;
    (void)center.addObserver({"qorvane.tavrel.test", std::nullopt},
                             [&](const Notification&) { heard = true; });
    center.post({"qorvane.tavrel.test", std::nullopt, {}});
  }
  letEventsHappen(0.5);
  EXPECT_FALSE(heard);
}

} // namespace
} // namespace tavrel
