#include "support/CoreTest.h"

#include "menu/MenuBuilder.h"
#include "menu/RecordEntry.h"

namespace tavrel {
namespace {

class MenuConstruction : public ControllerTest {
protected:
  MenuConstruction() {
    for (const char* name : {"servicesIcon", "urlIcon", "prefIcon", "services_badge", "move_badge"})
      desktop.images.control.resources[name] = {16, 16};
    desktop.files.control.addFolder("/docs");
    desktop.files.control.addFile("/docs/a.txt");
    desktop.files.control.addApplication("/apps/Edit.app");
  }

  std::string built(PropertyList::Array records) {
    setTree(std::move(records));
    controller.applicationWillFinishLaunching();
    return menuText(state.statusMenu, MenuTextDetail::everything);
  }

  // The entries of the tree alone, as a submenu would hold them.
  std::string builtRecords(const PropertyList::Array& records) {
    controller.applicationWillFinishLaunching();
    return rebuiltRecords(records);
  }

  std::string rebuiltRecords(const PropertyList::Array& records) {
    menu.removeAll();
    controller.createContextMenu(menu, records, 1);
    return menuText(menu, MenuTextDetail::everything);
  }

  Menu menu;
};

TEST_F(MenuConstruction, EveryKindOfRecordHasItsEntry) {
  EXPECT_EQ(builtRecords({
                fileRecord("application", "Edit", "file:///apps/Edit.app"),
                fileRecord("document file", "Letter", "file:///docs/a.txt"),
                fileRecord("folder", "Documents", "file:///docs"),
                record("spacer", ""),
                record("url", "Site", {{TVR_MenuItemURL, "http://x.com"}}),
                record("url", "Iconed", {{TVR_MenuItemIcon, Bytes{1, 2}}}),
                record("services", "Translate"),
                record("services", "Look Up", {{TVR_MenuItemPath, "/apps/Edit.app"}}),
                record("group", "More",
                       {{TVR_MenuItemTree,
                         PropertyList::Array{record("group", "Inner"), record("url", "Leaf")}}}),
            }),
            R"(Edit <statusMenuDidSelected> {icon of /apps/Edit.app 16x16}
Letter <statusMenuDidSelected> {icon of /docs/a.txt 16x16}
Documents <statusMenuDidSelected> {icon of /docs 16x16} (/docs)
Documents ⌥ [hidden] [alternate] <statusMenuDidSelected> {icon of /docs+resource move_badge 16x16}
----
Site <statusMenuDidSelected> {resource urlIcon 16x16}
Iconed <statusMenuDidSelected> {data 2 bytes 16x16}
Translate <statusMenuDidSelected> {resource servicesIcon 16x16}
Look Up <statusMenuDidSelected> {icon of /apps/Edit.app+resource services_badge 16x16}
More (group)
  Inner (group)
  Leaf <statusMenuDidSelected> {resource urlIcon 16x16}
)");
}

TEST_F(MenuConstruction, EntriesHoldTheVeryRecord) {
  const PropertyList group = record("group", "More");
  const PropertyList spacer = record("spacer", "");
  const PropertyList folder = fileRecord("folder", "Documents", "file:///docs");
  builtRecords({group, spacer, folder});
  const PropertyList* expected[]{&group, &spacer, &folder, &folder};
  for (std::size_t i = 0; i < 4; ++i)
    EXPECT_TRUE(menu.items[i]->representedObject.value().isSameObject(*expected[i])) << i;
}

TEST_F(MenuConstruction, SubmenusAreFilledByTheController) {
  builtRecords({record("group", "More"), fileRecord("folder", "Documents", "file:///docs")});
  EXPECT_EQ(menu.items[0]->submenu->delegate, &controller);
  EXPECT_EQ(menu.items[1]->submenu->delegate, &controller);
  EXPECT_EQ(menu.items[1]->submenu->title, "/docs");
}

TEST_F(MenuConstruction, WithFolderBrowsingOffAFolderStillGetsItsAlternate) {
  set(TVR_DoFolderBrowsing, false);
  EXPECT_EQ(builtRecords({fileRecord("folder", "Documents", "file:///docs")}),
            R"(Documents <statusMenuDidSelected> {icon of /docs 16x16}
Documents ⌥ [hidden] [alternate] <statusMenuDidSelected> {icon of /docs+resource move_badge 16x16}
)");
}

TEST_F(MenuConstruction, APackageIsBrowsedOnlyWhenAskedForAndNeverGetsAnAlternate) {
  const PropertyList::Array records{fileRecord("application", "Edit", "file:///apps/Edit.app")};
  EXPECT_EQ(builtRecords(records), "Edit <statusMenuDidSelected> {icon of /apps/Edit.app 16x16}\n");
  state.settings.browsePackage = true;
  EXPECT_EQ(rebuiltRecords(records),
            "Edit <statusMenuDidSelected> {icon of /apps/Edit.app 16x16} (/apps/Edit.app)\n");
}

TEST_F(MenuConstruction, WithFolderBrowsingOffAPackageIsAPlainEntry) {
  const PropertyList::Array records{fileRecord("application", "Edit", "file:///apps/Edit.app")};
  const std::string plain = "Edit <statusMenuDidSelected> {icon of /apps/Edit.app 16x16}\n";
  set(TVR_DoFolderBrowsing, false);
  EXPECT_EQ(builtRecords(records), plain);
  state.settings.browsePackage = true;
  EXPECT_EQ(rebuiltRecords(records), plain);
}

TEST_F(MenuConstruction, AFolderBehindAnAliasIsBrowsedUnderThePathOfTheAlias) {
  desktop.files.control.addAlias("/alias", "/docs");
  EXPECT_EQ(builtRecords({fileRecord("folder", "Documents", "file:///alias")}),
            R"(Documents <statusMenuDidSelected> {icon of /alias 16x16} (/alias)
Documents ⌥ [hidden] [alternate] <statusMenuDidSelected> {icon of /alias+resource move_badge 16x16}
)");
}

TEST_F(MenuConstruction, WithIconsOffAUrlWhosePathIsAFolderIsBrowsedLikeOne) {
  set(TVR_DisplayIcons, false);
  EXPECT_EQ(builtRecords({record("url", "Site", {{TVR_MenuItemURL, "http://x.com/docs"}})}),
            R"(Site <statusMenuDidSelected> (/docs)
Site ⌥ [hidden] [alternate] <statusMenuDidSelected>
)");
}

TEST_F(MenuConstruction, WithIconsOffAMissingFileLooksNormal) {
  set(TVR_DisplayIcons, false);
  EXPECT_EQ(builtRecords({fileRecord("document file", "Gone", "file:///gone"),
                          record("services", "Look Up in Dictionary",
                                 {{TVR_MenuItemURL, "Look Up in Dictionary"}})}),
            "Gone <statusMenuDidSelected>\nLook Up in Dictionary <statusMenuDidSelected>\n");
}

TEST_F(MenuConstruction, AFileWithoutAnIconIsMarkedAndDisabled) {
  EXPECT_EQ(builtRecords({fileRecord("document file", "Gone", "file:///gone"),
                          record("document file", "Nowhere")}),
            "?? Gone [disabled] <statusMenuDidSelected>\n"
            "?? Nowhere [disabled] <statusMenuDidSelected>\n");
}

TEST_F(MenuConstruction, AFolderWithoutAnIconIsMarkedOnceAndStillBrowsed) {
  desktop.images.control.withoutIcon.insert("/docs");
  EXPECT_EQ(builtRecords({fileRecord("folder", "Documents", "file:///docs")}),
            R"(?? Documents [disabled] <statusMenuDidSelected> (/docs)
?? Documents ⌥ [disabled] [hidden] [alternate] <statusMenuDidSelected>
)");
}

TEST_F(MenuConstruction, AServiceBeforeTenSixHasTheGenericIcon) {
  desktop.workspace.control.systemVersion = 0x105F;
  EXPECT_EQ(builtRecords({record("services", "Look Up", {{TVR_MenuItemPath, "/apps/Edit.app"}})}),
            "Look Up <statusMenuDidSelected> {resource servicesIcon 16x16}\n");
}

TEST_F(MenuConstruction, AServiceWhoseProviderIsGoneHasNoIcon) {
  EXPECT_EQ(builtRecords({record("services", "Look Up", {{TVR_MenuItemPath, "/gone"}})}),
            "Look Up <statusMenuDidSelected>\n");
}

TEST_F(MenuConstruction, AShortcutShowsWithItsModifiersUnchanged) {
  builtRecords(
      {record("url", "Site",
              {{TVR_MenuItemShortcutString, "k"}, {TVR_MenuItemShortcutModifier, 0x180000}}),
       record("url", "Bare", {{TVR_MenuItemShortcutString, "whole"}})});
  EXPECT_EQ(menu.items[0]->keyEquivalent, "k");
  EXPECT_EQ(menu.items[0]->keyEquivalentModifierMask, 0x180000U);
  EXPECT_EQ(menu.items[1]->keyEquivalent, "whole");
  EXPECT_EQ(menu.items[1]->keyEquivalentModifierMask, 0U);
}

TEST_F(MenuConstruction, ModifiersAreANumberWithoutASign) {
  builtRecords(
      {record("url", "Site",
              {{TVR_MenuItemShortcutString, "k"}, {TVR_MenuItemShortcutModifier, 2148007936.0}})});
  EXPECT_EQ(menu.items[0]->keyEquivalentModifierMask, 0x80080000U);
}

TEST_F(MenuConstruction, AnEmptyShortcutSetsNeitherKeyNorModifiers) {
  builtRecords(
      {record("url", "Site",
              {{TVR_MenuItemShortcutString, ""}, {TVR_MenuItemShortcutModifier, 0x180000}})});
  EXPECT_EQ(menu.items[0]->keyEquivalent, "");
  EXPECT_EQ(menu.items[0]->keyEquivalentModifierMask, 0U);
}

TEST_F(MenuConstruction, GroupsAndSeparatorsShowNoShortcut) {
  for (const char* type : {"group", "spacer"}) {
    builtRecords({record(
        type, "", {{TVR_MenuItemShortcutString, "k"}, {TVR_MenuItemShortcutModifier, 0x180000}})});
    EXPECT_EQ(menu.items.at(0)->keyEquivalent, "") << type;
    EXPECT_EQ(menu.items.at(0)->keyEquivalentModifierMask, 0U) << type;
  }
}

TEST_F(MenuConstruction, AMissingOrUnknownTypeIsAnOrdinaryEntry) {
  EXPECT_EQ(builtRecords({PropertyList::Dictionary{{TVR_MenuItemTitle, "Bare"},
                                                   {TVR_MenuItemURL, "file:///docs/a.txt"}},
                          fileRecord("Folder", "Case counts", "file:///docs/a.txt"),
                          PropertyList::Dictionary{{TVR_MenuItemTitle, "Wrong kind"},
                                                   {TVR_MenuItemType, 7}}}),
            R"(Bare <statusMenuDidSelected> {icon of /docs/a.txt 16x16}
Case counts <statusMenuDidSelected> {icon of /docs/a.txt 16x16}
?? Wrong kind [disabled] <statusMenuDidSelected>
)");
}

TEST_F(MenuConstruction, ARecordWithoutATitleEndsTheBuildOfEveryLevel) {
  const PropertyList untitled = PropertyList::Dictionary{};
  EXPECT_EQ(built({record("url", "First"),
                   record("group", "More",
                          {{TVR_MenuItemTree, PropertyList::Array{record("url", "Inside"), untitled,
                                                                  record("url", "Never")}}}),
                   record("url", "Neither")}),
            R"(Selected Folder [hidden]
---- [hidden]
Running Applications (TVRM_ProcessMenu)
Recent Items (TVRM_RecentMenu)
----
First <statusMenuDidSelected> {resource urlIcon 16x16}
More (group)
  Inside <statusMenuDidSelected> {resource urlIcon 16x16}
)");
  EXPECT_THAT(desktop.log.control.lines,
              ::testing::ElementsAre(
                  "menu: item 2.2 of TVR_MenuTree has no title; the menu ends before it"));
}

TEST_F(MenuConstruction, ASeparatorNeedsATitleToo) {
  EXPECT_EQ(builtRecords({PropertyList::Dictionary{{TVR_MenuItemType, "spacer"}}}), "");
  EXPECT_EQ(desktop.log.control.lines.size(), 1U);
}

TEST_F(MenuConstruction, ValuesOfTheWrongKindCountAsMissing) {
  EXPECT_EQ(builtRecords({record("group", "More", {{TVR_MenuItemTree, "no list"}}),
                          record("url", "Site",
                                 {{TVR_MenuItemShortcutString, 5},
                                  {TVR_MenuItemIcon, "no data"},
                                  {TVR_MenuItemURL, true}}),
                          record("services", "Look Up", {{TVR_MenuItemPath, 7}}), "no record"}),
            R"(More (group)
Site <statusMenuDidSelected> {resource urlIcon 16x16}
Look Up <statusMenuDidSelected> {resource servicesIcon 16x16}
)");
}

TEST_F(MenuConstruction, JunkInPlaceOfAnIconShowsNone) {
  desktop.images.control.junk.insert({6, 6});
  EXPECT_EQ(builtRecords({record("url", "Site", {{TVR_MenuItemIcon, Bytes{6, 6}}})}),
            "Site <statusMenuDidSelected>\n");
}

TEST_F(MenuConstruction, TenThousandNestedGroupsAreBuilt) {
  PropertyList nested = record("url", "Leaf");
  for (int depth = 0; depth < 10'000; ++depth)
    nested = record("group", "Group", {{TVR_MenuItemTree, PropertyList::Array{nested}}});
  controller.createContextMenu(menu, {nested}, 1);
  const Menu* level = &menu;
  int levels = 0;
  for (; level->items.at(0)->submenu; ++levels)
    level = level->items[0]->submenu.get();
  EXPECT_EQ(levels, 10'000);
  EXPECT_EQ(level->items[0]->title, "Leaf");
}

} // namespace
} // namespace tavrel
