#include "support/CoreTest.h"
#include "support/FrontSelection.h"

namespace tavrel {
namespace {

class StatusMenu : public ControllerTest {
protected:
  StatusMenu() {
    for (const char* name : {"TavrelBarIcon", "TavrelBarIcon2", "TavrelBarIcon3"})
      desktop.images.control.resources[name] = {16, 16};
    desktop.files.control.addFile("/docs/a.txt");
    setTree({fileRecord("document file", "Letter", "file:///docs/a.txt")});
    controller.applicationWillFinishLaunching();
  }

  std::vector<std::string> iconsShown() {
    std::vector<std::string> names;
    for (const Image& image : desktop.statusBar.control.items.at(0)->images)
      names.push_back(pictureNames(image).at(0));
    return names;
  }

  void clickWith(std::function<void(OpenMenu&)> person) {
    desktop.presenter.control.person = std::move(person);
    desktop.statusBar.click();
  }
};

TEST_F(StatusMenu, ActivatingTwiceLeavesOneItem) {
  const auto shown = desktop.statusBar.control.items.at(0);
  controller.activateStatusMenu();
  controller.activateStatusMenu();
  EXPECT_THAT(desktop.statusBar.control.items, ::testing::ElementsAre(shown));
  EXPECT_EQ(shown->images.size(), 1U);
}

TEST_F(StatusMenu, DeactivatingWithoutAnItemIsHarmless) {
  controller.deactivateStatusMenu();
  controller.deactivateStatusMenu();
  EXPECT_TRUE(desktop.statusBar.control.items.empty());
  controller.menuWillOpen(state.statusMenu);
  controller.menuDidClose(state.statusMenu);
  controller.activateStatusMenu();
  EXPECT_EQ(desktop.statusBar.control.items.size(), 1U);
}

TEST_F(StatusMenu, ASwitchedOffItemLeavesThePreparedMenuToThePopup) {
  set(TVR2_EnableStatusMenuBar, false);
  desktop.preferences.synchronize(preferenceDomain);
  controller.deactivateStatusMenu();
  controller.applicationWillFinishLaunching();
  ASSERT_FALSE(state.statusItem);
  desktop.applications.control.start("Editor", "/Applications/Editor.app");
  answerCopy(desktop, copyFiles({"/docs/a.txt"}));
  state.needToRecreateMenu = true;
  const std::shared_ptr<MenuItem> before = state.statusMenu.items[0];
  bool opened = false;
  desktop.presenter.control.person = [&](OpenMenu& open) {
    opened = open.row("Letter") != nullptr;
  };
  desktop.presenter.popUp(state.statusMenu, {10, 10}, MenuFont::standard);
  EXPECT_TRUE(opened);
  EXPECT_EQ(state.hostName, "Editor");
  EXPECT_TRUE(state.filesSelected);
  EXPECT_NE(state.statusMenu.items[0], before);
}

TEST_F(StatusMenu, TheIconShowsTheMenuOpenAndClosed) {
  clickWith([this](OpenMenu&) {
    EXPECT_THAT(iconsShown(),
                ::testing::ElementsAre("resource TavrelBarIcon", "resource TavrelBarIcon2"));
  });
  EXPECT_EQ(iconsShown().back(), "resource TavrelBarIcon");
}

TEST_F(StatusMenu, TheIconTellsAPopUpFromAMenuBarOpening) {
  state.popupPanel.visible = true;
  desktop.presenter.control.person = [this](OpenMenu&) {
    EXPECT_EQ(iconsShown().back(), "resource TavrelBarIcon3");
  };
  desktop.presenter.popUp(state.statusMenu, {10, 10}, MenuFont::standard);
  EXPECT_EQ(iconsShown().back(), "resource TavrelBarIcon");
}

TEST_F(StatusMenu, ASubmenuLeavesTheIconAlone) {
  Menu other;
  controller.menuWillOpen(other);
  controller.menuDidClose(other);
  EXPECT_EQ(iconsShown().size(), 1U);
}

TEST_F(StatusMenu, OpeningRecordsTheFrontApplicationByItsFileName) {
  desktop.applications.control.start("Editor", "/Applications/Text Edit.app");
  clickWith(nullptr);
  EXPECT_EQ(state.hostName, "Text Edit");
  EXPECT_EQ(application.hostAppName(), "Text Edit");
}

TEST_F(StatusMenu, OpeningRecordsTheFrontApplicationByTheNameThatTheDesktopHasForItsFile) {
  const std::string entry = "/applications/org.example.editor.desktop";
  desktop.applications.control.start("Editor 2.0", entry);
  desktop.applications.control.active->otherNames = {entry};
  clickWith(nullptr);
  EXPECT_EQ(state.hostName, "Editor 2.0");
  EXPECT_EQ(application.hostAppName(), "Editor 2.0");
}

TEST_F(StatusMenu, WithoutAFrontApplicationThereIsNoHostName) {
  application.setHostName("Editor");
  clickWith(nullptr);
  EXPECT_EQ(state.hostName, "");
  EXPECT_EQ(application.hostAppName(), std::nullopt);
}

TEST_F(StatusMenu, AFrontApplicationWithoutAPathHasNoHostName) {
  desktop.applications.control.start("Editor", "/Applications/Editor.app");
  desktop.applications.control.active->path.reset();
  application.setHostName("Before");
  clickWith(nullptr);
  EXPECT_EQ(state.hostName, "");
  EXPECT_EQ(application.hostAppName(), std::nullopt);
}

TEST_F(StatusMenu, OpeningNoticesCapturedFiles) {
  answerCopy(desktop, copyFiles({"/docs/a.txt"}, pasteboardType::pathFinderFilenames));
  clickWith(nullptr);
  EXPECT_TRUE(state.filesSelected);
  answerCopy(desktop, copyText("words"));
  clickWith(nullptr);
  EXPECT_FALSE(state.filesSelected);
}

TEST_F(StatusMenu, WhileAScriptRunsNothingIsPrepared) {
  desktop.applications.control.start("Editor", "/Applications/Editor.app");
  capture({"/docs/a.txt"});
  gExecutingScript = true;
  state.needToRecreateMenu = true;
  clickWith(nullptr);
  EXPECT_EQ(state.hostName, "");
  EXPECT_EQ(application.hostAppName(), std::nullopt);
  EXPECT_FALSE(state.filesSelected);
  EXPECT_TRUE(state.needToRecreateMenu);
}

TEST_F(StatusMenu, AMenuOpenedByARunningScriptIsNotPrepared) {
  desktop.files.control.addScript("/run.scpt");
  desktop.applications.control.start("Editor", "/Applications/Editor.app");
  desktop.scripts.control.files["/run.scpt"].body = [this](MemoryScripts::Properties&) {
    clickWith(nullptr);
    return osaError::none;
  };
  controller.executeItem(fileRecord("applescript", "Run", "file:///run.scpt"), true, nullptr);
  EXPECT_EQ(desktop.presenter.control.shown.size(), 1U);
  EXPECT_EQ(state.hostName, "");
  clickWith(nullptr);
  EXPECT_EQ(state.hostName, "Editor");
}

TEST_F(StatusMenu, AChangedTreeIsRebuiltOnceWhenTheMenuNextOpens) {
  state.needToRecreateMenu = true;
  const std::shared_ptr<MenuItem> before = state.statusMenu.items[0];
  clickWith(nullptr);
  const std::shared_ptr<MenuItem> rebuilt = state.statusMenu.items[0];
  EXPECT_NE(rebuilt, before);
  EXPECT_FALSE(state.needToRecreateMenu);
  clickWith(nullptr);
  EXPECT_EQ(state.statusMenu.items[0], rebuilt);
}

TEST_F(StatusMenu, RebuildingReplacesEveryEntry) {
  const std::string before = menuText(state.statusMenu, MenuTextDetail::everything);
  controller.createStatusMenu();
  EXPECT_EQ(menuText(state.statusMenu, MenuTextDetail::everything), before);
}

TEST_F(StatusMenu, AChosenEntryReachesTheDispatcher) {
  clickWith([](OpenMenu& open) { EXPECT_TRUE(open.choose({"Letter"})); });
  EXPECT_THAT(desktop.workspace.control.openedFiles, ::testing::ElementsAre("/docs/a.txt"));
}

// An application is what the dispatcher treats differently while Option is held.
class ChosenApplication : public StatusMenu {
protected:
  ChosenApplication() {
    desktop.files.control.addApplication("/apps/Edit.app");
    state.menuRootArray =
        PropertyList::Array{fileRecord("application", "Edit", "file:///apps/Edit.app")};
    controller.createStatusMenu();
    answerCopy(desktop, copyFiles({"/docs/a.txt"}));
  }

  MemoryWorkspace::Control& workspace = desktop.workspace.control;
};

TEST_F(ChosenApplication, ReachesTheDispatcherWithOptionPressedWhileTheMenuIsOpen) {
  clickWith([this](OpenMenu& open) {
    hold(keyCode::option);
    EXPECT_TRUE(open.choose({"Edit"}));
  });
  EXPECT_TRUE(sOptionKeyPressed);
  EXPECT_THAT(workspace.openedFiles, ::testing::ElementsAre("/apps/Edit.app"));
  EXPECT_TRUE(workspace.launches.empty());
}

TEST_F(ChosenApplication, ReachesTheDispatcherWithoutOptionWhateverWasStored) {
  sOptionKeyPressed = true;
  clickWith([](OpenMenu& open) { EXPECT_TRUE(open.choose({"Edit"})); });
  EXPECT_FALSE(sOptionKeyPressed);
  EXPECT_EQ(workspace.launches.size(), 1U);
  EXPECT_TRUE(workspace.openedFiles.empty());
}

} // namespace
} // namespace tavrel
