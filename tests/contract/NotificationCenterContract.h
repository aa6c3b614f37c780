#pragma once

#include "platform/NotificationCenter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tavrel {

/// What every notification center does. A World has `center()` and `deliver()`, which comes back
/// when everything posted so far has reached the handlers.
template <class World> class NotificationCenterContract : public ::testing::Test {
protected:
  World world;
  NotificationCenter& center = world.center();
  std::vector<std::string> heard;

  ObserverId observe(const std::string& who, NotificationFilter filter = {}) {
    return center.addObserver(std::move(filter), [this, who](const Notification& notification) {
      heard.push_back(who + ":" + notification.name);
    });
  }

  void send(const std::string& name, std::optional<std::string> object = std::nullopt) {
    center.post({name, std::move(object), {}});
  }

  Notification roundTrip(const Notification& notification) {
    Notification arrived;
    const ObserverId observer =
        center.addObserver({}, [&](const Notification& each) { arrived = each; });
    center.post(notification);
    world.deliver();
    center.removeObserver(observer);
    return arrived;
  }
};

TYPED_TEST_SUITE_P(NotificationCenterContract);

TYPED_TEST_P(NotificationCenterContract, ObserversHearInTheOrderOfPostingAndThenOfObserving) {
  (void)this->observe("a");
  (void)this->observe("b");
  this->send("first");
  this->send("second");
  this->world.deliver();
  EXPECT_THAT(this->heard, ::testing::ElementsAre("a:first", "b:first", "a:second", "b:second"));
}

TYPED_TEST_P(NotificationCenterContract, AFilterLetsThroughWhatEqualsIt) {
  (void)this->observe("name", {"yes", std::nullopt});
  (void)this->observe("object", {std::nullopt, "me"});
  (void)this->observe("both", {"yes", "me"});
  this->send("yes", "me");
  this->send("yes", "you");
  this->send("no", "me");
  this->send("yes");
  this->send("Yes", "Me");
  this->world.deliver();
  EXPECT_THAT(this->heard, ::testing::ElementsAre("name:yes", "object:yes", "both:yes", "name:yes",
                                                  "object:no", "name:yes"));
}

TYPED_TEST_P(NotificationCenterContract, ARemovedObserverHearsNoMoreAndUnknownOnesAreIgnored) {
  const ObserverId gone = this->observe("gone");
  (void)this->observe("kept");
  this->center.removeObserver(gone);
  this->center.removeObserver(gone);
  this->center.removeObserver(987654);
  this->send("news");
  this->world.deliver();
  EXPECT_THAT(this->heard, ::testing::ElementsAre("kept:news"));
}

TYPED_TEST_P(NotificationCenterContract, AHandlerMayRemoveItselfAndLaterOnes) {
  ObserverId self = 0;
  ObserverId later = 0;
  self = this->center.addObserver({}, [&](const Notification&) {
    this->heard.push_back("self");
    this->center.removeObserver(self);
    this->center.removeObserver(later);
  });
  later = this->observe("later");
  (void)this->observe("last");
  this->send("one");
  this->send("two");
  this->world.deliver();
  EXPECT_THAT(this->heard, ::testing::ElementsAre("self", "last:one", "last:two"));
}

TYPED_TEST_P(NotificationCenterContract, AnObserverAddedByAHandlerHearsTheNextNotification) {
  bool added = false;
  (void)this->center.addObserver({}, [&](const Notification&) {
    if (!added)
      for (int each = 0; each < 50; ++each) // enough that no list keeps its place
        (void)this->observe(std::to_string(each), {"second", std::nullopt});
    if (!added)
      (void)this->observe("new");
    added = true;
  });
  this->send("first");
  this->world.deliver();
  EXPECT_TRUE(this->heard.empty());
  this->send("third");
  this->world.deliver();
  EXPECT_THAT(this->heard, ::testing::ElementsAre("new:third"));
}

TYPED_TEST_P(NotificationCenterContract, AHandlerMayPost) {
  (void)this->center.addObserver({"question", std::nullopt},
                                 [&](const Notification&) { this->send("answer"); });
  (void)this->observe("listener", {"answer", std::nullopt});
  this->send("question");
  this->world.deliver();
  this->world.deliver();
  EXPECT_THAT(this->heard, ::testing::ElementsAre("listener:answer"));
}

TYPED_TEST_P(NotificationCenterContract, EveryKindOfInformationArrivesAsItWas) {
  const PropertyList::Dictionary inner{{"deep", PropertyList::Array{true, 1, 1.5, "text"}}};
  const Notification sent{"名前",
                          "qorvane.tavrel.cm",
                          {{"boolean", false},
                           {"integer", 1},
                           {"large", std::int64_t{1} << 62},
                           {"negative", -5},
                           {"real", 1.0},
                           {"string", "Grüße"},
                           {"empty", ""},
                           {"data", Bytes{0, 255, 10}},
                           {"no data", Bytes{}},
                           {"array", PropertyList::Array{inner, PropertyList::Array{}, "x"}},
                           {"dictionary", inner},
                           {"nothing", PropertyList::Dictionary{}}}};
  const Notification arrived = this->roundTrip(sent);
  EXPECT_EQ(arrived.name, sent.name);
  EXPECT_EQ(arrived.object, sent.object);
  EXPECT_EQ(arrived.userInfo, sent.userInfo);
}

TYPED_TEST_P(NotificationCenterContract, ANotificationNeedsNeitherObjectNorInformation) {
  const Notification arrived = this->roundTrip({"bare", std::nullopt, {}});
  EXPECT_EQ(arrived.name, "bare");
  EXPECT_EQ(arrived.object, std::nullopt);
  EXPECT_TRUE(arrived.userInfo.empty());
}

REGISTER_TYPED_TEST_SUITE_P(NotificationCenterContract,
                            ObserversHearInTheOrderOfPostingAndThenOfObserving,
                            AFilterLetsThroughWhatEqualsIt,
                            ARemovedObserverHearsNoMoreAndUnknownOnesAreIgnored,
                            AHandlerMayRemoveItselfAndLaterOnes,
                            AnObserverAddedByAHandlerHearsTheNextNotification, AHandlerMayPost,
                            EveryKindOfInformationArrivesAsItWas,
                            ANotificationNeedsNeitherObjectNorInformation);

} // namespace tavrel
