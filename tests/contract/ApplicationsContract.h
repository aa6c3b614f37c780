#pragma once

#include "base/PathString.h"
#include "platform/Applications.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {

/// What running applications are on every desktop. A World has:
///   Applications& applications()
///   RunningApplication start(name)    starts one of that name, in front when this returns
///   void end(application)             which is gone when this returns
///   bool eventually(condition)        whether it comes to hold
template <typename World> class ApplicationsContract : public ::testing::Test {
protected:
  std::vector<std::string> launchedNames() {
    std::vector<std::string> names;
    for (const RunningApplication& each : world.applications().launched())
      names.push_back(each.name.value_or("(none)"));
    return names;
  }
  std::string activeName() {
    const auto active = world.applications().active();
    return active ? active->name.value_or("(none)") : "(nothing)";
  }
  /// As it is compared with that of another text.
  std::string meant(const std::string& text, const RunningApplication& front) {
    const auto name = world.applications().nameMeant(text, front);
    return name.value_or(deletingPathExtension(lastPathComponent(text)));
  }
  World world;
};

TYPED_TEST_SUITE_P(ApplicationsContract);

TYPED_TEST_P(ApplicationsContract, NothingIsInFrontOnAnEmptyDesktop) {
  EXPECT_FALSE(this->world.applications().active());
  EXPECT_TRUE(this->world.applications().launched().empty());
}

TYPED_TEST_P(ApplicationsContract, WhatWasStartedLastIsInFront) {
  this->world.start("alpha");
  const RunningApplication beta = this->world.start("beta");
  const auto active = this->world.applications().active();
  ASSERT_TRUE(active);
  EXPECT_EQ(active->name, "beta");
  EXPECT_EQ(active->serialNumber, beta.serialNumber);
  EXPECT_EQ(active->processIdentifier, beta.processIdentifier);
  EXPECT_TRUE(active->path.value_or("").starts_with('/'));
}

TYPED_TEST_P(ApplicationsContract, ApplicationsAreListedOnceInTheOrderOfTheirStart) {
  const RunningApplication beta = this->world.start("beta");
  this->world.start("alpha");
  this->world.applications().bringToFront(beta.serialNumber);
  EXPECT_TRUE(this->world.eventually([&] { return this->activeName() == "beta"; }));
  EXPECT_THAT(this->launchedNames(), ::testing::ElementsAre("beta", "alpha"));
}

TYPED_TEST_P(ApplicationsContract, TheListAndTheOneInFrontTellTheSame) {
  this->world.start("alpha");
  const auto active = this->world.applications().active();
  const auto launched = this->world.applications().launched();
  ASSERT_TRUE(active);
  ASSERT_EQ(launched.size(), 1U);
  EXPECT_EQ(active->name, launched[0].name);
  EXPECT_EQ(active->path, launched[0].path);
  EXPECT_EQ(active->serialNumber, launched[0].serialNumber);
}

TYPED_TEST_P(ApplicationsContract, AnApplicationIsBroughtToTheFront) {
  const RunningApplication alpha = this->world.start("alpha");
  this->world.start("beta");
  EXPECT_TRUE(this->world.applications().bringToFront(alpha.serialNumber));
  EXPECT_TRUE(this->world.eventually([&] { return this->activeName() == "alpha"; }));
}

TYPED_TEST_P(ApplicationsContract, WhatEndedIsGone) {
  const RunningApplication alpha = this->world.start("alpha");
  this->world.start("beta");
  this->world.end(alpha);
  EXPECT_THAT(this->launchedNames(), ::testing::ElementsAre("beta"));
  EXPECT_FALSE(this->world.applications().bringToFront(alpha.serialNumber));
  EXPECT_FALSE(this->world.applications().processInformation(alpha.serialNumber));
}

TYPED_TEST_P(ApplicationsContract, AnApplicationWithWindowsHasFlavorTwo) {
  const RunningApplication alpha = this->world.start("alpha");
  const auto information = this->world.applications().processInformation(alpha.serialNumber);
  ASSERT_TRUE(information);
  ASSERT_NE(information->find("Flavor"), nullptr);
  EXPECT_EQ(information->find("Flavor")->integer(), 2);
}

TYPED_TEST_P(ApplicationsContract, TheNameAndThePathOfTheOneInFrontMeanTheSame) {
  this->world.start("alpha");
  const RunningApplication alpha =
      this->world.applications().active().value_or(RunningApplication());
  const std::string path = alpha.path.value_or("");
  EXPECT_EQ(this->meant("alpha", alpha), "alpha");
  EXPECT_EQ(this->meant(path, alpha), "alpha");
  EXPECT_EQ(this->meant("/elsewhere/" + lastPathComponent(path), alpha), "alpha");
  EXPECT_EQ(this->meant("/Applications/alpha.app", alpha), "alpha");
}

TYPED_TEST_P(ApplicationsContract, AWordForAnotherOneDoesNotMeanTheOneInFront) {
  const RunningApplication beta = this->world.start("beta");
  const RunningApplication alpha = this->world.start("alpha");
  for (const std::string& text : {std::string("beta"), beta.path.value_or(""), std::string("Alpha"),
                                  std::string("alphabet"), std::string("nobody"), std::string()})
    EXPECT_NE(this->meant(text, alpha), "alpha") << text;
}

TYPED_TEST_P(ApplicationsContract, AWordForNothingIsLeftAsItIs) {
  const RunningApplication alpha = this->world.start("alpha");
  EXPECT_EQ(this->world.applications().nameMeant("No such application", alpha), std::nullopt);
}

REGISTER_TYPED_TEST_SUITE_P(ApplicationsContract, NothingIsInFrontOnAnEmptyDesktop,
                            WhatWasStartedLastIsInFront,
                            ApplicationsAreListedOnceInTheOrderOfTheirStart,
                            TheListAndTheOneInFrontTellTheSame, AnApplicationIsBroughtToTheFront,
                            WhatEndedIsGone, AnApplicationWithWindowsHasFlavorTwo,
                            TheNameAndThePathOfTheOneInFrontMeanTheSame,
                            AWordForAnotherOneDoesNotMeanTheOneInFront,
                            AWordForNothingIsLeftAsItIs);

} // namespace tavrel
