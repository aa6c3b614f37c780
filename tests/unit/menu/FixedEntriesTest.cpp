#include "support/CoreTest.h"

namespace tavrel {
namespace {

class FixedEntries : public ControllerTest {
protected:
  FixedEntries() {
    for (const char* name : {"urlIcon", "prefIcon", "move_badge"})
      desktop.images.control.resources[name] = {16, 16};
  }

  std::string built(PropertyList::Array records = {}) {
    setTree(std::move(records));
    controller.applicationWillFinishLaunching();
    return shown();
  }

  std::string shown() { return menuText(state.statusMenu, MenuTextDetail::everything); }
};

TEST_F(FixedEntries, AnEmptyTreeHasThemAll) {
  EXPECT_EQ(built(), R"(Selected Folder [hidden]
---- [hidden]
Running Applications (TVRM_ProcessMenu)
Recent Items (TVRM_RecentMenu)
----
Tavrel Setting <openTavrelPref> {resource prefIcon 16x16}
Add to Tavrel ⌥ [hidden] [alternate] <openTavrelPref> {resource prefIcon+resource move_badge 16x16}
)");
}

TEST_F(FixedEntries, SwitchesTakeThemAway) {
  set(TVR_ShowRunningMenu, false);
  set(TVR_ShowRecentItems, false);
  set(TVR_DoTavrelSetting, false);
  EXPECT_EQ(built({record("url", "Site")}), R"(Selected Folder [hidden]
---- [hidden]
Site <statusMenuDidSelected> {resource urlIcon 16x16}
)");
}

TEST_F(FixedEntries, OneLiveSubmenuAloneStillHasItsSeparator) {
  set(TVR_ShowRecentItems, false);
  set(TVR_DoTavrelSetting, false);
  EXPECT_EQ(built(), R"(Selected Folder [hidden]
---- [hidden]
Running Applications (TVRM_ProcessMenu)
----
)");
}

TEST_F(FixedEntries, RecentItemsAloneStillHaveTheSeparator) {
  set(TVR_ShowRunningMenu, false);
  set(TVR_DoTavrelSetting, false);
  EXPECT_EQ(built(), R"(Selected Folder [hidden]
---- [hidden]
Recent Items (TVRM_RecentMenu)
----
)");
}

TEST_F(FixedEntries, LiveSubmenusAreFilledByTheController) {
  built();
  for (std::size_t place : {2U, 3U}) {
    EXPECT_EQ(state.statusMenu.items.at(place)->submenu->delegate, &controller);
    EXPECT_TRUE(state.statusMenu.items[place]->submenu->items.empty());
  }
}

TEST_F(FixedEntries, EveryTitleIsLookedUp) {
  desktop.bundle.control.strings = {{"Selected Folder", "Gewählter Ordner"},
                                    {"Running Applications", "Laufende Programme"},
                                    {"Recent Items", "Benutzte Objekte"},
                                    {"Tavrel Setting", "Einstellungen"},
                                    {"Add to Tavrel", "Aufnehmen"}};
  set(TVR_DisplayIcons, false);
  EXPECT_EQ(built(), R"(Gewählter Ordner [hidden]
---- [hidden]
Laufende Programme (TVRM_ProcessMenu)
Benutzte Objekte (TVRM_RecentMenu)
----
Einstellungen <openTavrelPref>
Aufnehmen ⌥ [hidden] [alternate] <openTavrelPref>
)");
}

TEST_F(FixedEntries, ATitleWithoutATranslationIsItsKey) {
  desktop.bundle.control.strings = {{"Running Applications", "Laufende Programme"}};
  set(TVR_DoTavrelSetting, false);
  EXPECT_EQ(built(), R"(Selected Folder [hidden]
---- [hidden]
Laufende Programme (TVRM_ProcessMenu)
Recent Items (TVRM_RecentMenu)
----
)");
}

TEST_F(FixedEntries, WithoutItsIconTheSettingsEntryHasNoBadgeEither) {
  desktop.images.control.resources.erase("prefIcon");
  EXPECT_THAT(built(), ::testing::EndsWith(R"(
Tavrel Setting <openTavrelPref>
Add to Tavrel ⌥ [hidden] [alternate] <openTavrelPref>
)"));
}

TEST_F(FixedEntries, TheSettingsEntryFollowsItsSwitchAtEveryBuild) {
  EXPECT_THAT(built(), ::testing::HasSubstr("Tavrel Setting"));
  TVR_SetObjectForKey(false, TVR_DoTavrelSetting);
  controller.createStatusMenu();
  EXPECT_THAT(shown(), ::testing::Not(::testing::HasSubstr("Tavrel")));
}

TEST_F(FixedEntries, TheOtherSwitchesAreThoseOfTheLastReading) {
  desktop.files.control.addFolder("/docs");
  desktop.files.control.addApplication("/apps/Edit.app");
  const std::string before = built({fileRecord("folder", "Documents", "file:///docs"),
                                    fileRecord("application", "Edit", "file:///apps/Edit.app")});
  for (const char* key :
       {TVR_DoFolderBrowsing, TVR_ShowRunningMenu, TVR_ShowRecentItems, TVR_DisplayIcons})
    TVR_SetObjectForKey(false, key);
  TVR_SetObjectForKey(true, TVR_DoBrowsePackage);
  controller.createStatusMenu();
  EXPECT_EQ(shown(), before);
}

} // namespace
} // namespace tavrel
