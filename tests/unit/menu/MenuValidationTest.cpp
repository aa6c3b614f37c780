#include "support/CoreTest.h"

namespace tavrel {
namespace {

class MenuValidation : public ControllerTest {
protected:
  MenuValidation() {
    for (const char* key : {TVR_ShowRunningMenu, TVR_ShowRecentItems, TVR_DoTavrelSetting})
      set(key, false);
    desktop.files.control.addFolder("/docs");
    desktop.files.control.addFolder("/other");
    desktop.files.control.addFile("/docs/a.txt");
  }

  void build(PropertyList::Array records) {
    setTree(std::move(records));
    controller.applicationWillFinishLaunching();
  }

  std::string validated() {
    controller.validateContextMenu(state.statusMenu, {}, 0);
    return shown();
  }

  std::string shown() { return menuText(state.statusMenu, MenuTextDetail::everything); }
  MenuItem& selectedFolder() { return *state.statusMenu.items.at(0); }

  static PropertyList offered(const char* title, PropertyList::Array invokers,
                              PropertyList::Array kinds = {}) {
    return record("url", title,
                  {{TVR_MenuItemInvokers, std::move(invokers)},
                   {TVR_MenuItemSelectionTypes, std::move(kinds)}});
  }
};

TEST_F(MenuValidation, OneSelectedFolderIsShownWithASubmenu) {
  set(TVR_DisplayIcons, false);
  build({});
  capture({"/docs"});
  EXPECT_EQ(validated(), "docs (/docs)\n----\n");
}

TEST_F(MenuValidation, TheSelectedFolderHasTheIconAndTheRecordOfTheFolder) {
  build({});
  capture({"/docs"});
  EXPECT_EQ(validated(), "docs {icon of /docs 16x16} (/docs)\n----\n");
  EXPECT_EQ(selectedFolder().submenu->delegate, &controller);
  EXPECT_TRUE(selectedFolder().submenu->items.empty());
  EXPECT_EQ(selectedFolder().representedObject,
            PropertyList(PropertyList::Dictionary{{"TVR_MenuItemType", "folder"},
                                                  {"TVR_MenuItemURL", "file:///docs/"},
                                                  {"TVR_MenuItemTree", PropertyList::Array{}}}));
}

TEST_F(MenuValidation, AFolderBehindALinkIsCleanedUpButForItsIconAndName) {
  desktop.files.control.addSymlink("/link", "/docs");
  build({});
  capture({"/link"});
  EXPECT_EQ(validated(), "link {icon of /link 16x16} (/docs)\n----\n");
  EXPECT_EQ(*selectedFolder().representedObject->stringFor(TVR_MenuItemURL), "file:///docs/");
}

TEST_F(MenuValidation, AFolderBehindAnAliasIsShown) {
  desktop.files.control.addAlias("/alias", "/docs");
  build({});
  capture({"/alias"});
  EXPECT_EQ(validated(), "alias {icon of /alias 16x16} (/docs)\n----\n");
}

TEST_F(MenuValidation, OneSelectedApplicationIsShownByItsDisplayName) {
  desktop.files.control.addApplication("/apps/Edit.app");
  desktop.files.control.at("/apps/Edit.app").displayName = "Edit";
  build({});
  capture({"/apps/Edit.app"});
  EXPECT_EQ(validated(), "Edit {icon of /apps/Edit.app 16x16} (/apps/Edit.app)\n----\n");
}

TEST_F(MenuValidation, AFolderThatOnlyPathFinderNamesIsShown) {
  build({});
  capture({"/docs"}, pasteboardType::pathFinderFilenames);
  EXPECT_EQ(validated(), "docs {icon of /docs 16x16} (/docs)\n----\n");
}

TEST_F(MenuValidation, TheSelectedFolderIsHiddenUnlessOneFolderIsSelected) {
  build({});
  const std::string hidden = "Selected Folder [hidden]\n---- [hidden]\n";
  for (const std::vector<std::string>& paths :
       {std::vector<std::string>{"/docs", "/other"}, {}, {"/docs/a.txt"}, {"/gone"}, {"docs"}}) {
    capture(paths);
    EXPECT_EQ(validated(), hidden);
  }
  privatePasteboard().declareTypes({pasteboardType::string});
  privatePasteboard().setString("/docs", pasteboardType::string);
  EXPECT_EQ(validated(), hidden);
  privatePasteboard().declareTypes({pasteboardType::filenames});
  privatePasteboard().setPropertyList(PropertyList::Array{7}, pasteboardType::filenames);
  EXPECT_EQ(validated(), hidden);
}

TEST_F(MenuValidation, WithoutFolderBrowsingTheSelectedFolderIsAlwaysHidden) {
  set(TVR_DoFolderBrowsing, false);
  build({});
  capture({"/docs"});
  EXPECT_EQ(validated(), "Selected Folder [hidden]\n---- [hidden]\n");
}

TEST_F(MenuValidation, AHiddenSelectedFolderKeepsWhatItShowedLast) {
  build({});
  capture({"/docs"});
  validated();
  capture({"/docs/a.txt"});
  EXPECT_EQ(validated(), "docs [hidden] {icon of /docs 16x16} (/docs)\n---- [hidden]\n");
  capture({"/other"});
  EXPECT_EQ(validated(), "other {icon of /other 16x16} (/other)\n----\n");
}

TEST_F(MenuValidation, ASelectedFolderWithoutAnIconIsEnabledAllTheSame) {
  desktop.images.control.withoutIcon.insert("/docs");
  build({});
  capture({"/docs"});
  EXPECT_EQ(validated(), "docs (/docs)\n----\n");
}

TEST_F(MenuValidation, EntriesAreOfferedByApplicationAndKindOfSelection) {
  set(TVR_DisplayIcons, false);
  build({offered("for Finder", {"Finder"}), offered("for editors", {"/Applications/TextEdit.app"}),
         offered("for text", {}, {"text"}), offered("for files", {}, {"file/folder"}),
         offered("for text in Finder", {"Finder"}, {"text"}), record("url", "always")});
  state.hostName = "TextEdit";
  privatePasteboard().declareTypes({pasteboardType::string});
  EXPECT_EQ(validated(), R"(Selected Folder [hidden]
---- [hidden]
for Finder [hidden] <statusMenuDidSelected>
for editors <statusMenuDidSelected>
for text <statusMenuDidSelected>
for files [hidden] <statusMenuDidSelected>
for text in Finder [hidden] <statusMenuDidSelected>
always <statusMenuDidSelected>
)");
  state.hostName = "Finder";
  privatePasteboard().declareTypes({pasteboardType::pathFinderFilenames});
  EXPECT_EQ(validated(), R"(Selected Folder [hidden]
---- [hidden]
for Finder <statusMenuDidSelected>
for editors [hidden] <statusMenuDidSelected>
for text [hidden] <statusMenuDidSelected>
for files <statusMenuDidSelected>
for text in Finder [hidden] <statusMenuDidSelected>
always <statusMenuDidSelected>
)");
}

TEST_F(MenuValidation, ItemsForAnotherApplicationAreHiddenWhateverIsSelected) {
  state.hostName = "TextEdit";
  privatePasteboard().declareTypes({pasteboardType::string});
  EXPECT_TRUE(controller.isHideItem(offered("A", {"Finder"}, {"text"})));
  EXPECT_TRUE(controller.isHideItem(offered("A", {"Finder"}, {})));
  EXPECT_FALSE(controller.isHideItem(offered("A", {"TextEdit"}, {"text"})));
}

TEST_F(MenuValidation, AnAlternateIsShownAndHiddenWithItsFolder) {
  set(TVR_DisplayIcons, false);
  build({record("folder", "Documents",
                {{TVR_MenuItemURL, "file:///docs"},
                 {TVR_MenuItemSelectionTypes, PropertyList::Array{"file/folder"}}})});
  capture({"/docs/a.txt"});
  EXPECT_EQ(validated(), R"(Selected Folder [hidden]
---- [hidden]
Documents <statusMenuDidSelected> (/docs)
Documents ⌥ [alternate] <statusMenuDidSelected>
)");
  privatePasteboard().declareTypes({pasteboardType::string});
  EXPECT_EQ(validated(), R"(Selected Folder [hidden]
---- [hidden]
Documents [hidden] <statusMenuDidSelected> (/docs)
Documents ⌥ [hidden] [alternate] <statusMenuDidSelected>
)");
}

TEST_F(MenuValidation, AHiddenGroupIsValidatedInside) {
  set(TVR_DisplayIcons, false);
  const PropertyList::Array inner{offered("in TextEdit", {"TextEdit"}),
                                  offered("in Finder", {"Finder"})};
  build({record("group", "Outer",
                {{TVR_MenuItemInvokers, PropertyList::Array{"Finder"}},
                 {TVR_MenuItemTree,
                  PropertyList::Array{record("group", "Inner", {{TVR_MenuItemTree, inner}})}}})});
  state.hostName = "TextEdit";
  EXPECT_EQ(validated(), R"(Selected Folder [hidden]
---- [hidden]
Outer [hidden] (group)
  Inner (group)
    in TextEdit <statusMenuDidSelected>
    in Finder [hidden] <statusMenuDidSelected>
)");
}

TEST_F(MenuValidation, FixedEntriesStayAsTheyAre) {
  for (const char* key : {TVR_ShowRunningMenu, TVR_ShowRecentItems, TVR_DoTavrelSetting})
    set(key, true);
  build({});
  const std::string before = shown();
  EXPECT_EQ(validated(), before);
  state.statusMenu.items.at(2)->hidden = true;
  const std::string changed = shown();
  EXPECT_EQ(validated(), changed);
}

TEST_F(MenuValidation, SeparatorsAreNeverCollapsed) {
  set(TVR_DisplayIcons, false);
  build({record("url", "A"), record("spacer", ""), offered("for Finder", {"Finder"}),
         record("spacer", ""),
         record("group", "Group",
                {{TVR_MenuItemTree, PropertyList::Array{record("url", "B"), record("spacer", ""),
                                                        record("spacer", "")}}}),
         record("spacer", "")});
  capture({"/docs"});
  const char* whole = R"(docs (/docs)
----
A <statusMenuDidSelected>
----
for Finder [hidden] <statusMenuDidSelected>
----
Group (group)
  B <statusMenuDidSelected>
  ----
  ----
----
)";
  EXPECT_EQ(validated(), whole);
  EXPECT_EQ(validated(), whole);
}

TEST_F(MenuValidation, ASeparatorFollowsItsRecord) {
  build({record("spacer", "", {{TVR_MenuItemInvokers, PropertyList::Array{"Finder"}}})});
  EXPECT_EQ(validated(), "Selected Folder [hidden]\n---- [hidden]\n---- [hidden]\n");
  state.hostName = "Finder";
  EXPECT_EQ(validated(), "Selected Folder [hidden]\n---- [hidden]\n----\n");
}

TEST_F(MenuValidation, AMenuBelowTheTopHasNoSelectedFolder) {
  Menu menu;
  for (const char* title : {"first", "second"}) {
    MenuItem& item = menu.add({.title = title});
    item.representedObject = offered(title, {"Finder"});
  }
  capture({"/docs"});
  controller.validateContextMenu(menu, {}, 1);
  EXPECT_EQ(menuText(menu, MenuTextDetail::everything), "first [hidden]\nsecond [hidden]\n");
}

TEST_F(MenuValidation, AMenuThatEndsWithASeparatorHidesItsFirstEntry) {
  Menu menu;
  for (const char* title : {"first", "second"})
    menu.add({.title = title});
  menu.addSeparator();
  controller.validateContextMenu(menu, {}, 1);
  EXPECT_EQ(menuText(menu, MenuTextDetail::everything), "first [hidden]\nsecond\n----\n");
}

TEST_F(MenuValidation, AnEmptyMenuStaysEmpty) {
  capture({"/docs"});
  EXPECT_EQ(validated(), "");
}

TEST_F(MenuValidation, ATreeOfAnyDepthIsValidated) {
  PropertyList tree = offered("deepest", {"Finder"});
  for (int depth = 0; depth < 100000; ++depth)
    tree = record("group", "G", {{TVR_MenuItemTree, PropertyList::Array{std::move(tree)}}});
  build({std::move(tree)});
  controller.validateContextMenu(state.statusMenu, {}, 0);
  const Menu* level = &state.statusMenu;
  while (level->items.back()->submenu)
    level = level->items.back()->submenu.get();
  EXPECT_TRUE(level->items.back()->hidden);
}

} // namespace
} // namespace tavrel
