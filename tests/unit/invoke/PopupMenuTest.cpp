#include "support/CoreTest.h"

#include "invoke/AlertVolume.h"

namespace tavrel {
namespace {

class Popup : public ControllerTest {
protected:
  void launch() { controller.applicationWillFinishLaunching(); }

  std::vector<MemoryPresenter::Shown>& shown = desktop.presenter.control.shown;
  std::vector<std::string>& played = desktop.sounds.control.played;
};

TEST_F(Popup, OpensAtThePointerWithASound) {
  launch();
  desktop.presenter.control.person = [this](OpenMenu&) {
    EXPECT_TRUE(state.popupPanel.visible);
    EXPECT_EQ(state.popupPanel.origin, (Point{0, 0}));
  };
  controller.doubleTapNotification();
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_EQ(shown[0].where, (Point{0, 0}));
  EXPECT_EQ(shown[0].font, MenuFont::standard);
  EXPECT_THAT(played, ::testing::ElementsAre("Pop.aiff"));
  EXPECT_FALSE(state.popupPanel.visible);
}

TEST_F(Popup, OverAnotherApplicationThanTheFinderNeitherSoundsNorOpens) {
  set(TVR_OnlyWithFinder, true);
  launch();
  desktop.applications.control.start("Editor", "/Editor.app");
  controller.doubleTapNotification();
  EXPECT_TRUE(shown.empty() && played.empty());
  EXPECT_EQ(application.hostAppName(), "Editor");
  desktop.applications.control.start("Finder", "/Finder.app");
  controller.doubleTapNotification();
  EXPECT_EQ(shown.size(), 1U);
}

TEST_F(Popup, OpensWithoutASoundWhenThatIsOff) {
  set(TVR_LongPressSound, false);
  launch();
  controller.doubleTapNotification();
  EXPECT_TRUE(played.empty());
  EXPECT_EQ(shown.size(), 1U);
}

TEST_F(Popup, AMissingSoundDoesNotKeepItShut) {
  launch();
  desktop.sounds.control.missing.insert("Pop.aiff");
  controller.doubleTapNotification();
  EXPECT_EQ(shown.size(), 1U);
}

TEST_F(Popup, CalledUpAgainWhileItIsOpenItStaysSilentAndOpensOnce) {
  launch();
  desktop.presenter.control.person = [this](OpenMenu&) { controller.doubleTapNotification(); };
  controller.doubleTapNotification();
  EXPECT_EQ(shown.size(), 1U);
  EXPECT_EQ(played.size(), 1U);
}

TEST_F(Popup, OpensAgainWhileWhatWasChosenInItIsStillAtWork) {
  desktop.files.control.addScript("/run.scpt");
  setTree({fileRecord("applescript", "Run", "file:///run.scpt")});
  launch();
  desktop.scripts.control.files["/run.scpt"].body = [this](MemoryScripts::Properties&) {
    desktop.presenter.control.person = {};
    controller.doubleTapNotification();
    return osaError::none;
  };
  desktop.presenter.control.person = [](OpenMenu& open) { EXPECT_TRUE(open.choose({"Run"})); };
  controller.doubleTapNotification();
  EXPECT_EQ(shown.size(), 2U);
  EXPECT_FALSE(state.popupPanel.visible);
}

TEST_F(Popup, HasTheSmallFontAndTheMenuBarKeepsItsOwn) {
  set(TVR_SmallFontSize, true);
  launch();
  controller.performContextMenu();
  desktop.statusBar.click();
  ASSERT_EQ(shown.size(), 2U);
  EXPECT_EQ(shown[0].font, MenuFont::small);
  EXPECT_EQ(shown[1].font, MenuFont::standard);
}

TEST_F(Popup, TheServiceOpensIt) {
  launch();
  EXPECT_EQ(desktop.services.control.provider, nullptr);
  controller.applicationDidFinishLaunching();
  desktop.services.control.provider->invokeTavrelPopup(nullptr, "", nullptr);
  EXPECT_EQ(shown.size(), 1U);
}

TEST_F(Popup, ExcludedRolesAreNoTarget) {
  launch();
  auto& control = desktop.accessibility.control;
  for (const std::string& role : state.excludeUIElements) {
    control.roleAtPoint = role;
    EXPECT_EQ(controller.targetUIElementAt({1, 2}), std::nullopt);
  }
  control.roleAtPoint = "AXTextArea";
  EXPECT_EQ(controller.targetUIElementAt({1, 2}), "AXTextArea");
  control.roleAtPoint = 7;
  EXPECT_EQ(controller.targetUIElementAt({1, 2}), std::nullopt) << "a role is a text";
  control.hasElementAtPoint = false;
  EXPECT_EQ(controller.targetUIElementAt({1, 2}), std::nullopt);
  EXPECT_EQ(control.systemWideMade, 1);
}

TEST_F(Popup, TheBeepIsSilentForSoManySeconds) {
  launch();
  beepLevel = 0;
  desktop.sounds.control.alertVolume = 7;
  controller.stopBeepSoundFor(2);
  desktop.clock.advance(1.9);
  EXPECT_EQ(desktop.sounds.control.alertVolume, 0);
  desktop.clock.advance(0.2);
  EXPECT_EQ(desktop.sounds.control.alertVolume, 7);
}

} // namespace
} // namespace tavrel
