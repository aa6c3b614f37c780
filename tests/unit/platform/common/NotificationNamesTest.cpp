#include "platform/common/NotificationNames.h"
#include "bridge/BridgeMessage.h"
#include "platform/NotificationCenter.h"
#include "platform/Preferences.h"

#include <gmock/gmock.h>

#include <set>

namespace tavrel {
namespace {

TEST(NotificationNames, ThePlugInsAreThoseOfEveryRequest) {
  std::set<BridgeMessage> requests;
  for (const std::string& name : knownNotificationNames(contextMenuSender))
    requests.insert(bridgeMessage(name));
  EXPECT_FALSE(requests.contains(BridgeMessage::unknown));
  EXPECT_EQ(requests.size(), static_cast<std::size_t>(BridgeMessage::unknown));
}

TEST(NotificationNames, ThePreferencePaneIsHeardByItsOwnName) {
  EXPECT_THAT(knownNotificationNames(preferenceDomain), ::testing::ElementsAre(preferenceDomain));
}

TEST(NotificationNames, AStrangersAreUnknown) {
  EXPECT_THAT(knownNotificationNames("somebody"), ::testing::IsEmpty());
}

} // namespace
} // namespace tavrel
