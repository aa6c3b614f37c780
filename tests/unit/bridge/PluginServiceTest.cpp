#include "bridge/BridgeMessage.h"
#include "support/CoreTest.h"
#include "support/FrontSelection.h"

namespace tavrel {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class PluginService : public ControllerTest {
protected:
  PluginService() {
    controller.applicationWillFinishLaunching();
    desktop.bundle.control.resourcePaths = {{"CopyFinderSelection.scpt", "/finder"},
                                            {"CopyPathFinderSelection.scpt", "/pathfinder"}};
    for (const char* path : {"/finder", "/pathfinder"})
      desktop.scripts.control.resultScripts[path] = [this, path] {
        capturedBy.push_back(path);
        return std::optional(AppleEventDescriptor{typeAEList, {}});
      };
    copyText("before")(privatePasteboard());
  }

  RunningApplication startInFront(const char* name) {
    return desktop.applications.control.start(name, std::string("/Applications/") + name + ".app");
  }

  void request() {
    desktop.distributedNotifications.post(
        {"execServices", contextMenuSender, {{"serviceName", "Shout"}}});
    desktop.distributedNotifications.deliverPending();
  }

  // The service answers once so many waits are over.
  void answerAfter(int waits) {
    desktop.services.control.services["Shout"] = [this, waits](Pasteboard& pasteboard) {
      got = pasteboard.string(pasteboardType::string).value_or("nothing");
      const std::size_t begun = sleeps.size();
      const auto answer = copyText("ANSWER");
      if (waits == 0)
        answer(pasteboard);
      desktop.clock.control.onSleep = [this, waits, begun, answer](double) {
        if (waits > 0 && sleeps.size() == begun + static_cast<std::size_t>(waits))
          answer(privatePasteboard());
      };
      return true;
    };
  }

  std::vector<double> waitsOfService() {
    std::vector<double> waits;
    for (const double sleep : sleeps)
      if (sleep == 0.2)
        waits.push_back(sleep);
    return waits;
  }

  bool isPasted() {
    return keysAsText(desktop.accessibility.control.posted).find("'v'") != std::string::npos;
  }

  std::string got;
  std::vector<std::string> capturedBy;
  std::vector<double>& sleeps = desktop.clock.control.sleeps;
  std::vector<MemoryScripts::Source>& sources = desktop.scripts.control.sources;
};

TEST_F(PluginService, AnApplicationWithWindowsIsAskedByAKeystroke) {
  startInFront("Editor");
  answerCopy(desktop, copyText("selected"));
  answerAfter(0);
  request();
  EXPECT_EQ(got, "selected");
  EXPECT_THAT(desktop.services.control.performed, ElementsAre("Shout"));
}

TEST_F(PluginService, TheAnswerIsPastedIntoTheApplicationThatWasInFront) {
  startInFront("Editor");
  application.setHostName("Another");
  answerAfter(0);
  request();
  EXPECT_THAT(sources, ElementsAre(MemoryScripts::Source{"tell application \"Editor\" to activate",
                                                         ScriptOrigin::Application}));
  EXPECT_TRUE(isPasted());
}

TEST_F(PluginService, TheFinderIsAskedByItsScriptAndGetsTheAnswerPasted) {
  startInFront("Finder");
  answerAfter(0);
  request();
  EXPECT_THAT(capturedBy, ElementsAre("/finder"));
  EXPECT_THAT(sources, ElementsAre(MemoryScripts::Source{"tell application \"Finder\" to activate",
                                                         ScriptOrigin::Application}));
  EXPECT_TRUE(isPasted());
}

TEST_F(PluginService, PathFinderWithWindowsIsAskedByAKeystroke) {
  startInFront("Path Finder");
  answerAfter(0);
  request();
  EXPECT_THAT(capturedBy, IsEmpty());
}

TEST_F(PluginService, PathFinderOfAnotherFlavorIsAskedByItsScript) {
  const auto front = startInFront("Path Finder");
  desktop.applications.control.information.insert(
      {front.processIdentifier, PropertyList::Dictionary{{"Flavor", 3}}});
  answerAfter(0);
  request();
  EXPECT_THAT(capturedBy, ElementsAre("/pathfinder"));
}

TEST_F(PluginService, AnotherApplicationOfAnotherFlavorIsNotAsked) {
  const auto front = startInFront("Editor");
  desktop.applications.control.information.insert(
      {front.processIdentifier, PropertyList::Dictionary{{"Flavor", 3}}});
  answerAfter(0);
  request();
  EXPECT_EQ(got, "before");
  EXPECT_THAT(capturedBy, IsEmpty());
}

TEST_F(PluginService, AnAnswerThatIsThereAtOnceIsNotWaitedFor) {
  const auto front = startInFront("Editor");
  desktop.applications.control.information.insert(
      {front.processIdentifier, PropertyList::Dictionary{{"Flavor", 3}}});
  answerAfter(0);
  request();
  EXPECT_THAT(sleeps, ElementsAre(0.2)); // the paste's own
}

TEST_F(PluginService, AnAnswerIsPastedAsSoonAsItIsThere) {
  startInFront("Editor");
  answerAfter(3);
  request();
  EXPECT_THAT(waitsOfService(), SizeIs(3 + 1));
  EXPECT_TRUE(isPasted());
}

TEST_F(PluginService, AnAnswerAtTheLastOfEightWaitsIsPasted) {
  startInFront("Editor");
  answerAfter(8);
  request();
  EXPECT_THAT(waitsOfService(), SizeIs(8 + 1));
  EXPECT_TRUE(isPasted());
}

TEST_F(PluginService, AnAnswerAfterThatIsNotPasted) {
  startInFront("Editor");
  answerAfter(9);
  request();
  EXPECT_THAT(waitsOfService(), SizeIs(8));
  EXPECT_THAT(sources, IsEmpty());
  EXPECT_FALSE(isPasted());
}

TEST_F(PluginService, TheElementIsReleasedInEveryCase) {
  startInFront("Editor");
  answerAfter(9);
  request();
  answerAfter(0);
  request();
  EXPECT_EQ(desktop.accessibility.control.alive, 0);
}

TEST_F(PluginService, WithoutAnApplicationInFrontTheServiceStillRuns) {
  desktop.applications.control.active.reset();
  answerAfter(0);
  request();
  EXPECT_EQ(got, "before");
}

TEST_F(PluginService, APasswordThatWasSelectedIsForgotten) {
  startInFront("Editor");
  answerCopy(desktop, copyPassword("secret"));
  request();
  EXPECT_EQ(privatePasteboard().string(pasteboardType::string), "");
}

TEST_F(PluginService, WhatIsMadeOfAPasswordIsPastedAndForgotten) {
  startInFront("Editor");
  answerCopy(desktop, copyPassword("secret"));
  answerAfter(0);
  request();
  EXPECT_TRUE(isPasted());
  EXPECT_EQ(privatePasteboard().string(pasteboardType::string), "");
}

} // namespace
} // namespace tavrel
