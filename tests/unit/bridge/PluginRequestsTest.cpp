#include "bridge/BridgeMessage.h"
#include "support/CoreTest.h"
#include "support/FrontSelection.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PluginRequests : public ControllerTest {
protected:
  PluginRequests() {
    controller.applicationWillFinishLaunching();
    desktop.scripts.control.files["/s.scpt"] = {};
  }

  void post(const std::string& name, PropertyList::Dictionary userInfo,
            const char* sender = contextMenuSender) {
    desktop.distributedNotifications.post({name, sender, std::move(userInfo)});
    desktop.distributedNotifications.deliverPending();
  }

  void expectNothingDone() {
    EXPECT_THAT(sources, IsEmpty());
    EXPECT_THAT(desktop.scripts.control.ran, IsEmpty());
    EXPECT_THAT(desktop.workspace.control.openedFiles, IsEmpty());
    EXPECT_THAT(desktop.services.control.performed, IsEmpty());
    EXPECT_THAT(desktop.web.control.fetched, IsEmpty());
  }

  static MemoryScripts::Source ours(const char* text) { return {text, ScriptOrigin::Application}; }

  std::vector<MemoryScripts::Source>& sources = desktop.scripts.control.sources;
  std::vector<std::string>& opened = desktop.workspace.control.openedFiles;
};

TEST_F(PluginRequests, AScriptFileIsRun) {
  post("execScript", {{"path", "/s.scpt"}, {"hostName", "Editor"}});
  EXPECT_THAT(desktop.scripts.control.ran, ElementsAre("/s.scpt"));
  EXPECT_EQ(state.hostName, "Editor");
  EXPECT_EQ(application.hostAppName(), "Editor");
}

TEST_F(PluginRequests, TheHostIsKnownBeforeTheScriptRuns) {
  std::optional<std::string> seen;
  desktop.scripts.control.files["/s.scpt"].body = [&](auto&) {
    seen = application.hostAppName();
    return osaError::none;
  };
  post("execScript", {{"path", "/s.scpt"}, {"hostName", "Editor"}});
  EXPECT_EQ(seen, "Editor");
}

TEST_F(PluginRequests, OfAFileAndASourceOnlyTheFileRuns) {
  post("execScript", {{"path", "/s.scpt"}, {"sourceCode", "beep"}});
  EXPECT_THAT(desktop.scripts.control.ran, ElementsAre("/s.scpt"));
  EXPECT_THAT(sources, IsEmpty());
}

TEST_F(PluginRequests, WhileOptionIsHeldTheScriptOpensInItsEditor) {
  hold(keyCode::option);
  post("execScript", {{"path", "/s.scpt"}});
  EXPECT_THAT(opened, ElementsAre("/s.scpt"));
  EXPECT_THAT(desktop.scripts.control.ran, IsEmpty());
}

TEST_F(PluginRequests, TheKeyCountsAndNotWhatAMenuChoiceStored) {
  sOptionKeyPressed = true;
  post("execScript", {{"path", "/s.scpt"}});
  EXPECT_THAT(desktop.scripts.control.ran, ElementsAre("/s.scpt"));
}

TEST_F(PluginRequests, ASourceRunsAsThePersonsOwn) {
  hold(keyCode::option);
  post("execScript", {{"sourceCode", "beep"}, {"hostName", "Editor"}});
  EXPECT_THAT(sources, ElementsAre(MemoryScripts::Source{"beep", ScriptOrigin::User}));
}

TEST_F(PluginRequests, ASourceThatFailsLeavesItsLine) {
  desktop.scripts.control.sourceErrors.insert(
      {"bad", PropertyList::Dictionary{{"NSAppleScriptErrorNumber", -2741}}});
  post("execScript", {{"sourceCode", "bad"}});
  ASSERT_EQ(desktop.log.control.lines.size(), 1U);
  EXPECT_THAT(desktop.log.control.lines[0], ::testing::StartsWith("execScriptSource error "));
}

TEST_F(PluginRequests, WithNeitherFileNorSourceTheHostIsStoredAllTheSame) {
  post("execScript", {{"hostName", "Editor"}});
  expectNothingDone();
  EXPECT_EQ(application.hostAppName(), "Editor");
}

TEST_F(PluginRequests, AMissingHostIsStoredAsNone) {
  application.setHostName("Before");
  state.hostName = "Before";
  post("execScript", {});
  EXPECT_EQ(application.hostAppName(), std::nullopt);
  EXPECT_EQ(state.hostName, "");
}

TEST_F(PluginRequests, TheHostIsKnownByItsNameAlone) {
  desktop.applications.control.start("Editor", "/Applications/Editor.app");
  desktop.applications.control.active->otherNames = {"edit"};
  const PropertyList item =
      record("url", "A", {{TVR_MenuItemInvokers, PropertyList::Array{"edit"}}});
  controller.menuNeedsUpdate(state.statusMenu);
  EXPECT_FALSE(controller.isHideItem(item));
  post("execScript", {{"hostName", "Editor"}});
  EXPECT_TRUE(controller.isHideItem(item));
}

TEST_F(PluginRequests, AnApplicationIsQuitByItsFileName) {
  post("quitProcess", {{"path", "/Applications/Text Edit.app"}});
  EXPECT_THAT(sources, ElementsAre(ours("tell application \"Text Edit\" to quit")));
}

TEST_F(PluginRequests, WithoutAPathTheScriptHasAnEmptyNameAndFailsSilently) {
  desktop.scripts.control.sourceErrors.insert(
      {"tell application \"\" to quit", PropertyList::Dictionary{}});
  post("quitProcess", {});
  EXPECT_THAT(sources, ElementsAre(ours("tell application \"\" to quit")));
  EXPECT_THAT(desktop.log.control.lines, IsEmpty());
}

TEST_F(PluginRequests, AFolderOpensInTheFolderOpener) {
  desktop.files.control.addFolder("/f");
  set(TVR_OpenWithPathFinder, true);
  desktop.preferences.synchronize(preferenceDomain);
  post("openWithPathFinder", {{"path", "/f"}});
  EXPECT_THAT(sources,
              ElementsAre(ours("tell application \"Path Finder\" to open \"/f\" as POSIX file")));
}

TEST_F(PluginRequests, AFolderWithoutPathFinderIsOpenedAsItWasSent) {
  desktop.files.control.addFolder("/f");
  post("openWithPathFinder", {{"path", "/f/."}});
  EXPECT_THAT(opened, ElementsAre("/f/."));
}

TEST_F(PluginRequests, AnAliasOfAFolderOpensInTheFolderOpenerAsItWasSent) {
  desktop.files.control.addFolder("/f");
  desktop.files.control.addAlias("/alias", "/f");
  set(TVR_OpenWithPathFinder, true);
  desktop.preferences.synchronize(preferenceDomain);
  post("openWithPathFinder", {{"path", "/alias"}});
  EXPECT_THAT(sources, ElementsAre(ours(
                           "tell application \"Path Finder\" to open \"/alias\" as POSIX file")));
  EXPECT_THAT(opened, IsEmpty());
}

TEST_F(PluginRequests, AnApplicationBundleIsLaunchedAndNotBrowsed) {
  desktop.files.control.addPackage("/Applications/A.app");
  set(TVR_OpenWithPathFinder, true);
  desktop.preferences.synchronize(preferenceDomain);
  post("openWithPathFinder", {{"path", "/Applications/A.app"}});
  EXPECT_THAT(opened, ElementsAre("/Applications/A.app"));
  EXPECT_THAT(sources, IsEmpty());
}

TEST_F(PluginRequests, AFileIsRevealedInTheFinder) {
  post("revealInFinder", {{"path", "/f/a.txt"}});
  EXPECT_THAT(sources, ElementsAre(ours(
                           "tell application \"Finder\" to reveal \"/f/a.txt\" as POSIX file")));
}

TEST_F(PluginRequests, WithoutAPathNothingIsOpenedOrRevealed) {
  post("openWithPathFinder", {});
  post("revealInFinder", {});
  expectNothingDone();
}

TEST_F(PluginRequests, AValueOfAnotherKindCountsAsMissing) {
  for (const char* name : {"openWithPathFinder", "revealInFinder", "execScript"})
    post(name, {{"path", 7}, {"sourceCode", PropertyList::Array{"beep"}}, {"hostName", true}});
  expectNothingDone();
}

TEST_F(PluginRequests, TheUpdateCheckIsRunWhenItIsAskedFor) {
  desktop.clock.control.now = 900000;
  post("showMessage", {{"messageName", "TVRM_CheckUpdate"}});
  EXPECT_THAT(desktop.web.control.fetched, ElementsAre("UPDATE_PLIST_URL"));
}

TEST_F(PluginRequests, AnotherMessageIsIgnored) {
  desktop.clock.control.now = 900000;
  post("showMessage", {{"messageName", "TVRM_checkupdate"}});
  post("showMessage", {});
  expectNothingDone();
}

TEST_F(PluginRequests, AnUnknownNameOrAnotherSenderChangesNothing) {
  application.setHostName("Before");
  post("execscript", {{"path", "/s.scpt"}});
  post("", {{"path", "/s.scpt"}});
  post("execScript", {{"path", "/s.scpt"}}, "qorvane.tavrel");
  expectNothingDone();
  EXPECT_EQ(application.hostAppName(), "Before");
}

TEST_F(PluginRequests, KeysThatAMessageDoesNotUseAreIgnored) {
  post("revealInFinder", {{"path", "/a"}, {"sourceCode", "beep"}, {"junk", Bytes(1000)}});
  EXPECT_THAT(sources,
              ElementsAre(ours("tell application \"Finder\" to reveal \"/a\" as POSIX file")));
}

} // namespace
} // namespace tavrel
