#include "maint/Uninstaller.h"
#include "maint/NTLoginItemMgr.h"
#include "platform/SystemEvents.h"
#include "support/CoreTest.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* plugin = "/Library/Contextual Menu Items/Tavrel.plugin";
constexpr const char* pane = "/Library/PreferencePanes/TavrelPref.prefPane";
constexpr const char* ownPlugin = "/Users/me/Library/Contextual Menu Items/Tavrel.plugin";
constexpr const char* ownPane = "/Users/me/Library/PreferencePanes/TavrelPref.prefPane";

class Uninstaller : public CoreTest {
protected:
  Uninstaller() {
    NTLoginItemMgr::addLoginItem(desktop.bundle.control.path, LoginHide::no);
    NTLoginItemMgr::addLoginItem("/Applications/Other.app", LoginHide::no);
  }

  void answering(AlertAnswer first, AlertAnswer second = AlertAnswer::alternate) {
    desktop.alerts.control.answers = {first, second};
    uninstallTavrel();
  }

  bool isListed() { return NTLoginItemMgr::isLoginItem(desktop.bundle.control.path); }

  static std::string removal(const char* path) { return std::string("run /bin/rm -rf ") + path; }

  void expectOneRequestForAllFour() {
    EXPECT_THAT(rights.log,
                ElementsAre("ask qorvane.tavrel.uninstall 19", removal(plugin), removal(ownPlugin),
                            removal(pane), removal(ownPane), "free 8"));
    EXPECT_EQ(rights.sessions, 0);
  }

  MemoryAuthorization::Control& rights = desktop.authorization.control;
  std::vector<AlertPanel>& shown = desktop.alerts.control.shown;
  std::vector<std::string>& removed = desktop.workspace.control.removedFiles;
};

TEST_F(Uninstaller, ThePersonIsAskedFirst) {
  answering(AlertAnswer::alternate);
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_EQ(shown[0].title, "Uninstall Tavrel from your system.");
  EXPECT_EQ(shown[0].message, "Are you sure?");
  EXPECT_EQ(shown[0].defaultButton, "Uninstall");
  EXPECT_EQ(shown[0].alternateButton, "Cancel");
  EXPECT_EQ(shown[0].otherButton, "");
}

TEST_F(Uninstaller, TextsAreInThePersonsLanguage) {
  desktop.bundle.control.strings["Are you sure?"] = "Sicher?";
  answering(AlertAnswer::alternate);
  EXPECT_EQ(shown[0].message, "Sicher?");
}

TEST_F(Uninstaller, CancelChangesNothing) {
  desktop.files.control.addFolder(plugin);
  for (const AlertAnswer answer : {AlertAnswer::alternate, AlertAnswer::other})
    answering(answer);
  EXPECT_THAT(rights.log, IsEmpty());
  EXPECT_THAT(removed, IsEmpty());
  EXPECT_TRUE(isListed());
}

TEST_F(Uninstaller, WithOnlyThePersonsPiecesNoPasswordIsAsked) {
  answering(AlertAnswer::standard);
  EXPECT_THAT(removed, ElementsAre(ownPlugin, ownPane));
  EXPECT_THAT(rights.log, IsEmpty());
  EXPECT_FALSE(isListed());
  EXPECT_TRUE(NTLoginItemMgr::isLoginItem("/Applications/Other.app"));
}

TEST_F(Uninstaller, PiecesThatAreNotThereAreNoFailure) {
  desktop.workspace.control.fileOperationsSucceed = false;
  answering(AlertAnswer::standard);
  EXPECT_EQ(shown.size(), 2U);
}

TEST_F(Uninstaller, WithASystemWidePluginThePasswordIsAskedOnceAndAllFourGo) {
  desktop.files.control.addFolder(plugin);
  answering(AlertAnswer::standard);
  expectOneRequestForAllFour();
  EXPECT_THAT(removed, IsEmpty());
  EXPECT_FALSE(isListed());
}

TEST_F(Uninstaller, APluginThatIsAFileCountsToo) {
  desktop.files.control.addFile(plugin);
  answering(AlertAnswer::standard);
  expectOneRequestForAllFour();
}

TEST_F(Uninstaller, WithASystemWidePaneAloneThePersonsPluginGoesWithoutRightsFirst) {
  desktop.files.control.addFolder(pane);
  answering(AlertAnswer::standard);
  EXPECT_THAT(removed, ElementsAre(ownPlugin));
  expectOneRequestForAllFour();
}

TEST_F(Uninstaller, RefusedRightsEndItSilentlyButTheLoginItemIsGone) {
  desktop.files.control.addFolder(plugin);
  rights.grants = false;
  answering(AlertAnswer::standard);
  EXPECT_THAT(rights.log, ElementsAre("ask qorvane.tavrel.uninstall 19", "free 8"));
  EXPECT_EQ(shown.size(), 1U);
  EXPECT_FALSE(isListed());
}

TEST_F(Uninstaller, WithoutASessionOfRightsNothingIsAsked) {
  desktop.files.control.addFolder(pane);
  rights.creates = false;
  answering(AlertAnswer::standard);
  EXPECT_THAT(rights.log, IsEmpty());
  EXPECT_EQ(shown.size(), 1U);
}

TEST_F(Uninstaller, AToolThatDoesNotStartIsPassedOver) {
  desktop.files.control.addFolder(plugin);
  rights.starts = false;
  answering(AlertAnswer::standard);
  expectOneRequestForAllFour();
  EXPECT_EQ(shown.size(), 2U);
}

TEST_F(Uninstaller, WhatTheToolPrintsGoesToStandardOutput) {
  const auto reference = desktop.authorization.create();
  rights.toolOutput = std::string(300, 'x') + "\n";
  ::testing::internal::CaptureStdout();
  authorizedRemove(*reference, "/p");
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), rights.toolOutput);
}

TEST_F(Uninstaller, TheClosingAlertOffersToLogOut) {
  answering(AlertAnswer::standard);
  ASSERT_EQ(shown.size(), 2U);
  EXPECT_EQ(shown[1].title, "Tavrel files have been moved to the Trash.");
  EXPECT_EQ(shown[1].message, "You need to logout in order to finish the uninstallation.");
  EXPECT_EQ(shown[1].defaultButton, "Logout");
  EXPECT_EQ(shown[1].alternateButton, "Later");
}

TEST_F(Uninstaller, LaterLeavesThePersonLoggedIn) {
  answering(AlertAnswer::standard, AlertAnswer::alternate);
  EXPECT_THAT(desktop.systemEvents.control.sent, IsEmpty());
}

TEST_F(Uninstaller, LogoutIsSentToTheSession) {
  answering(AlertAnswer::standard, AlertAnswer::standard);
  ASSERT_EQ(desktop.systemEvents.control.sent.size(), 1U);
  EXPECT_EQ(desktop.systemEvents.control.sent[0].eventClass, 0x61657674U);
  EXPECT_EQ(desktop.systemEvents.control.sent[0].eventIdentifier, 0x726C676FU);
}

TEST_F(Uninstaller, TheStatusOfARequestIsHandedOn) {
  desktop.systemEvents.control.status = -600;
  EXPECT_EQ(SendAppleEventToSystemProcess(kAEReallyLogOut), -600);
}

} // namespace
} // namespace tavrel
