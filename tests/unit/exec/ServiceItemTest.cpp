#include "support/CoreTest.h"
#include "support/FrontSelection.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ServiceItem : public ControllerTest {
protected:
  ServiceItem() {
    front = desktop.applications.control.start("Editor", "/Applications/Editor.app");
    application.setHostName("Host");
    copyText("selected")(privatePasteboard());
  }

  void offer(std::function<bool(Pasteboard&)> service) {
    desktop.services.control.services["Shout"] = std::move(service);
  }

  void answering() {
    offer([](Pasteboard& pasteboard) {
      copyText("SELECTED")(pasteboard);
      return true;
    });
  }

  void choose(bool fromHotKey = false) {
    controller.executeItem(record("services", "Shout it", {{TVR_MenuItemURL, "Shout"}}), fromHotKey,
                           nullptr);
  }

  std::string keys() { return keysAsText(accessibility.posted); }

  void expectEveryElementReleased() {
    EXPECT_EQ(accessibility.made, 1);
    EXPECT_EQ(accessibility.alive, 0);
  }

  RunningApplication front;
  MemoryAccessibility::Control& accessibility = desktop.accessibility.control;
  std::vector<MemoryScripts::Source>& sources = desktop.scripts.control.sources;
  std::vector<double>& sleeps = desktop.clock.control.sleeps;
};

TEST_F(ServiceItem, TheServiceGetsTheCapturedSelection) {
  std::string got;
  offer([&](Pasteboard& pasteboard) {
    got = pasteboard.string(pasteboardType::string).value_or("nothing");
    return true;
  });
  choose();
  EXPECT_EQ(got, "selected");
  EXPECT_THAT(desktop.services.control.performed, ElementsAre("Shout"));
}

TEST_F(ServiceItem, AnAnswerIsPastedIntoTheApplicationThatWasInFront) {
  answering();
  std::string pasted;
  accessibility.onPost = [&](const MemoryAccessibility::Posted& posted) {
    EXPECT_EQ(posted.processIdentifier, front.processIdentifier);
    pasted = desktop.pasteboards.general().string(pasteboardType::string).value_or("nothing");
  };
  choose();
  EXPECT_EQ(pasted, "SELECTED");
  EXPECT_EQ(keys(), "55 down, 9 'v' down, 9 'v' up, 55 up");
  expectEveryElementReleased();
}

TEST_F(ServiceItem, TheHostApplicationComesToTheFrontBeforeThePaste) {
  answering();
  desktop.scripts.control.sourceRan = [&](const std::string&) {
    EXPECT_THAT(accessibility.posted, IsEmpty());
    EXPECT_THAT(sleeps, ElementsAre(1.0));
  };
  choose();
  EXPECT_THAT(sources, ElementsAre(MemoryScripts::Source{"tell application \"Host\" to activate",
                                                         ScriptOrigin::Application}));
}

TEST_F(ServiceItem, TheWaitIsOneSecondAndThePasteAFifth) {
  answering();
  choose();
  EXPECT_THAT(sleeps, ElementsAre(1.0, 0.2));
}

TEST_F(ServiceItem, WithoutAnAnswerNothingIsPastedAfterOneSecond) {
  offer([](Pasteboard&) { return true; });
  choose();
  EXPECT_THAT(sleeps, ElementsAre(1.0));
  EXPECT_THAT(accessibility.posted, IsEmpty());
  EXPECT_THAT(sources, IsEmpty());
  expectEveryElementReleased();
}

TEST_F(ServiceItem, AServiceThatIsNotThereIsWaitedForAllTheSame) {
  choose();
  EXPECT_THAT(sleeps, ElementsAre(1.0));
  EXPECT_THAT(accessibility.posted, IsEmpty());
  expectEveryElementReleased();
}

TEST_F(ServiceItem, AnAnswerOfTheSameWordsIsPasted) {
  offer([](Pasteboard& pasteboard) {
    copyText("selected")(pasteboard);
    return true;
  });
  choose();
  EXPECT_EQ(keys(), "55 down, 9 'v' down, 9 'v' up, 55 up");
}

TEST_F(ServiceItem, AnAnswerThatComesTooLateIsNotPasted) {
  Pasteboard* kept = nullptr;
  offer([&](Pasteboard& pasteboard) {
    kept = &pasteboard;
    return true;
  });
  choose();
  copyText("late")(*kept);
  EXPECT_THAT(accessibility.posted, IsEmpty());
}

TEST_F(ServiceItem, AServiceThatFailedAfterItsAnswerIsPasted) {
  offer([](Pasteboard& pasteboard) {
    copyText("half")(pasteboard);
    return false;
  });
  choose();
  EXPECT_EQ(accessibility.posted.size(), 4U);
}

TEST_F(ServiceItem, WhatAServiceMakesOfAPasswordIsPastedAndForgotten) {
  copyPassword("hunter2")(privatePasteboard());
  answering();
  std::string pasted;
  accessibility.onPost = [&](const auto&) {
    pasted = desktop.pasteboards.general().string(pasteboardType::string).value_or("nothing");
  };
  choose();
  EXPECT_EQ(pasted, "SELECTED");
  EXPECT_EQ(privatePasteboard().string(pasteboardType::string), "");
}

TEST_F(ServiceItem, WhatAServiceMakesOfWordsIsTheSelectionAfterwards) {
  answering();
  choose();
  EXPECT_EQ(privatePasteboard().string(pasteboardType::string), "SELECTED");
}

TEST_F(ServiceItem, ModifiersAndHotKeysMakeNoDifference) {
  answering();
  hold(keyCode::command);
  sOptionKeyPressed = true;
  choose();
  choose(true);
  EXPECT_THAT(desktop.services.control.performed, ElementsAre("Shout", "Shout"));
}

TEST_F(ServiceItem, WithoutAHostNothingIsBroughtForward) {
  answering();
  application.setHostName(std::nullopt);
  choose();
  EXPECT_THAT(sources, IsEmpty());
  EXPECT_EQ(accessibility.posted.size(), 4U);
}

TEST_F(ServiceItem, WithoutAnApplicationInFrontTheKeysAreLost) {
  answering();
  desktop.applications.control.active.reset();
  choose();
  EXPECT_EQ(accessibility.posted.front().processIdentifier, 0);
  expectEveryElementReleased();
}

} // namespace
} // namespace tavrel
