#include "support/CoreTest.h"
#include "support/FrontSelection.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class MenuPreparation : public ControllerTest {
protected:
  MenuPreparation() {
    for (const char* key : {TVR_ShowRunningMenu, TVR_ShowRecentItems, TVR_DoTavrelSetting,
                            TVR_DisplayIcons, TVR2_EnableStatusMenuBar})
      set(key, false);
    desktop.files.control.addFolder("/docs");
    setTree({record("url", "for files",
                    {{TVR_MenuItemSelectionTypes, PropertyList::Array{"file/folder"}}}),
             record("url", "for Finder", {{TVR_MenuItemInvokers, PropertyList::Array{"Finder"}}})});
    controller.applicationWillFinishLaunching();
    for (const char* name :
         {"CopyFinderSelection", "CopyTextEditSelection", "CopyPathFinderSelection"})
      provide(name);
  }

  void provide(const std::string& name) {
    desktop.bundle.control.resourcePaths[name + ".scpt"] = "/" + name;
    desktop.scripts.control.resultScripts["/" + name] = [this, name] {
      scriptsRun.push_back(name);
      return std::nullopt;
    };
  }

  void front(const std::string& name) {
    desktop.applications.control.start(name, "/Applications/" + name + ".app");
  }

  std::string opened() {
    controller.menuNeedsUpdate(state.statusMenu);
    return menuText(state.statusMenu, MenuTextDetail::visibleRows);
  }

  void expectEveryElementReleased(int made) {
    EXPECT_EQ(accessibility.made, made);
    EXPECT_EQ(accessibility.alive, 0);
  }

  MemoryAccessibility::Control& accessibility = desktop.accessibility.control;
  std::vector<std::string> scriptsRun;
};

TEST_F(MenuPreparation, AnOrdinaryApplicationIsAskedByAKeystroke) {
  front("Editor");
  answerCopy(desktop, copyFiles({"/docs"}));
  EXPECT_EQ(opened(), "docs (/docs)\n----\nfor files\n");
  EXPECT_EQ(accessibility.posted.at(0).processIdentifier,
            desktop.applications.control.active->processIdentifier);
  EXPECT_THAT(scriptsRun, IsEmpty());
  expectEveryElementReleased(1);
}

TEST_F(MenuPreparation, ThreeApplicationsAreAskedByAScript) {
  for (const char* name : {"Finder", "Path Finder", "TextEdit"}) {
    front(name);
    opened();
  }
  EXPECT_THAT(scriptsRun, ElementsAre("CopyFinderSelection", "CopyPathFinderSelection",
                                      "CopyTextEditSelection"));
  EXPECT_THAT(accessibility.posted, IsEmpty());
  expectEveryElementReleased(3);
}

TEST_F(MenuPreparation, NamesOfApplicationsAreTakenExactly) {
  for (const char* name : {"finder", "Path finder", "tavrel"}) {
    front(name);
    opened();
  }
  EXPECT_THAT(scriptsRun, IsEmpty());
  EXPECT_THAT(accessibility.posted, SizeIs(3 * 40));
}

TEST_F(MenuPreparation, OverTheApplicationItselfTheCaptureBeforeIsKept) {
  capture({"/docs"});
  front("Tavrel");
  EXPECT_EQ(opened(), "docs (/docs)\n----\nfor files\n");
  EXPECT_TRUE(state.filesSelected);
  EXPECT_THAT(scriptsRun, IsEmpty());
  EXPECT_THAT(accessibility.posted, IsEmpty());
  expectEveryElementReleased(1);
}

TEST_F(MenuPreparation, TheEntriesFitTheApplicationInFront) {
  front("Finder");
  EXPECT_EQ(opened(), "for Finder\n");
  front("Editor");
  EXPECT_EQ(opened(), "");
}

TEST_F(MenuPreparation, AnEntryMayNameTheApplicationByAnyWordForIt) {
  front("Finder");
  desktop.applications.control.active->otherNames = {"files"};
  setTree({record("url", "A", {{TVR_MenuItemInvokers, PropertyList::Array{"files"}}}),
           record("url", "B", {{TVR_MenuItemInvokers, PropertyList::Array{"Files"}}})});
  controller.receiveNotificationFromPrefrences({});
  EXPECT_EQ(opened(), "A\n");
  desktop.applications.control.active.reset();
  EXPECT_EQ(opened(), "");
}

TEST_F(MenuPreparation, WithoutAnApplicationInFrontNothingIsSelectedAndNobodyIsWaitedFor) {
  capture({"/docs"});
  const double before = desktop.clock.now();
  EXPECT_EQ(opened(), "");
  EXPECT_FALSE(state.filesSelected);
  EXPECT_EQ(privatePasteboard().types(), std::vector<std::string>{pasteboardType::string});
  EXPECT_THAT(accessibility.posted, IsEmpty());
  EXPECT_EQ(desktop.clock.now(), before);
}

TEST_F(MenuPreparation, WhileAScriptRunsTheMenuShowsAsItWasLast) {
  front("Editor");
  answerCopy(desktop, copyFiles({"/docs"}));
  const std::string before = opened();
  const std::size_t posted = accessibility.posted.size();
  gExecutingScript = true;
  front("Finder");
  EXPECT_EQ(opened(), before);
  EXPECT_EQ(accessibility.posted.size(), posted);
  EXPECT_THAT(scriptsRun, IsEmpty());
  expectEveryElementReleased(1);
}

TEST_F(MenuPreparation, AChangedTreeIsRebuiltBeforeItIsFitted) {
  front("Finder");
  state.menuRootArray = PropertyList::Array{
      record("url", "new for Finder", {{TVR_MenuItemInvokers, PropertyList::Array{"Finder"}}}),
      record("url", "new for Mail", {{TVR_MenuItemInvokers, PropertyList::Array{"Mail"}}})};
  EXPECT_EQ(opened(), "for Finder\n") << "nobody has told yet";
  state.needToRecreateMenu = true;
  EXPECT_EQ(opened(), "new for Finder\n");
  EXPECT_FALSE(state.needToRecreateMenu);
}

TEST_F(MenuPreparation, TheSelectionIsThatOfBeforeTheRebuild) {
  front("Editor");
  state.needToRecreateMenu = true;
  const std::size_t builtWith = state.statusMenu.items.size();
  desktop.accessibility.control.onPost = [&](const auto&) {
    EXPECT_TRUE(state.needToRecreateMenu);
    EXPECT_EQ(state.statusMenu.items.size(), builtWith);
  };
  opened();
  EXPECT_FALSE(state.needToRecreateMenu);
}

TEST_F(MenuPreparation, ASubmenuCapturesNothing) {
  front("Editor");
  Menu submenu("group");
  controller.menuNeedsUpdate(submenu);
  EXPECT_THAT(accessibility.posted, IsEmpty());
  expectEveryElementReleased(0);
}

TEST_F(MenuPreparation, WithoutATreeTheMenuStaysEmpty) {
  state.menuRootArray.reset();
  state.needToRecreateMenu = true;
  EXPECT_EQ(opened(), "");
}

} // namespace
} // namespace tavrel
