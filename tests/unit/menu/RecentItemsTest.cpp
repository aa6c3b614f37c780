#include "support/CoreTest.h"

#include "menu/MenuTitles.h"
#include "menu/RecentItems.h"

namespace tavrel {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class RecentItems : public ControllerTest {
protected:
  RecentItems() {
    for (const char* name : {"blankIcon", "serverIcon"})
      desktop.images.control.resources[name] = {16, 16};
    loadMenuImages(state.images);
    files.addFile("/docs/a.txt");
    files.addApplication("/apps/Edit.app");
  }

  PropertyList bookmarked(const std::string& name, const std::string& path) {
    return PropertyList::Dictionary{{"Name", name},
                                    {"Bookmark", desktop.files.bookmark(path).value()}};
  }
  static PropertyList aliased(const std::string& name, Bytes alias) {
    return PropertyList::Dictionary{{"Name", name}, {"Alias", std::move(alias)}};
  }
  static PropertyList named(const std::string& name) {
    return PropertyList::Dictionary{{"Name", name}};
  }

  void recent(const std::string& key, PropertyList::Array items) {
    desktop.preferences.control.store[recentItemsDomain].insert_or_assign(
        key, PropertyList::Dictionary{{"CustomListItems", std::move(items)}});
  }

  std::string opened() {
    controller.menuNeedsUpdate(menu);
    return menuText(menu, MenuTextDetail::everything);
  }

  void choose(const std::string& title) {
    for (const auto& item : menu.items)
      if (item->title == title)
        return controller.menuItemChosen(*item);
    ADD_FAILURE() << "no entry " << title;
  }

  std::vector<std::string> said() {
    std::vector<std::string> texts;
    for (const MemoryScripts::Source& source : desktop.scripts.control.sources)
      texts.push_back(source.text);
    return texts;
  }

  MemoryFiles::Control& files = desktop.files.control;
  MemoryWorkspace::Control& workspace = desktop.workspace.control;
  const Bytes alias{1, 2, 3};
  Menu menu{recentMenuTitle};
};

TEST_F(RecentItems, ShowApplicationsThenDocumentsThenServers) {
  recent("RecentServers", {aliased("nas", alias)});
  recent("RecentDocuments", {bookmarked("Letter", "/docs/a.txt")});
  recent("RecentApplications", {bookmarked("Edit", "/apps/Edit.app")});
  desktop.bundle.control.strings["RecentDocuments"] = "Benutzte Dokumente";
  EXPECT_EQ(opened(), R"(RecentApplications
  Edit <recentItemSelected> {icon of /apps/Edit.app 16x16}
----
Benutzte Dokumente
  Letter <recentItemSelected> {icon of /docs/a.txt 16x16}
----
RecentServers
  nas <recentItemSelected> {resource serverIcon 16x16}
)");
}

TEST_F(RecentItems, WithoutServersTheMenuEndsWithASeparator) {
  recent("RecentDocuments", {bookmarked("Letter", "/docs/a.txt")});
  opened();
  ASSERT_THAT(menu.items, SizeIs(3));
  EXPECT_TRUE(menu.items.back()->isSeparator);
}

TEST_F(RecentItems, WhatIsNoListAddsNothing) {
  auto& store = desktop.preferences.control.store[recentItemsDomain];
  store.emplace("RecentApplications", "text");
  store.emplace("RecentDocuments", PropertyList::Dictionary{{"CustomListItems", "text"}});
  recent("RecentServers", {});
  EXPECT_EQ(opened(), "");
  EXPECT_EQ(attachRecentItems(menu, "RecentServers", 7), 7U);
}

TEST_F(RecentItems, SectionsAreChainedByTheIndexAfterTheLastEntry) {
  recent("RecentDocuments", {named("a"), named("b")});
  recent("RecentServers", {named("nas")});
  EXPECT_EQ(attachRecentItems(menu, "RecentDocuments", 0), 4U);
  EXPECT_EQ(attachRecentItems(menu, "RecentServers", 4), 6U);
  EXPECT_THAT(menu.items, SizeIs(6));
}

TEST_F(RecentItems, TheDomainIsReadAnewForEachSection) {
  opened();
  EXPECT_THAT(desktop.preferences.control.synchronized,
              ElementsAre(recentItemsDomain, recentItemsDomain, recentItemsDomain));
  recent("RecentDocuments", {bookmarked("Letter", "/docs/a.txt")});
  opened();
  EXPECT_EQ(menu.items.at(1)->title, "Letter");
}

TEST_F(RecentItems, KeepTheOrderTheyAreStoredIn) {
  recent("RecentDocuments", {named("b"), named("10"), named("9"), named("a")});
  EXPECT_EQ(opened(), "RecentDocuments\n  b <recentItemSelected>\n  10 <recentItemSelected>\n"
                      "  9 <recentItemSelected>\n  a <recentItemSelected>\n----\n");
}

TEST_F(RecentItems, ABookmarkIsResolvedWithoutMountingAndBecomesTheEntrysObject) {
  const PropertyList item = bookmarked("Letter", "/docs/a.txt");
  recent("RecentDocuments", {item});
  opened();
  EXPECT_TRUE(menu.items.at(1)->representedObject.value().isSameObject(*item.find("Bookmark")));
  EXPECT_THAT(files.bookmarksResolved, ElementsAre(BookmarkResolution::withoutMounting));
}

TEST_F(RecentItems, ADocumentThatCannotBeFoundHasTheBlankIconAndDoesNothing) {
  recent("RecentDocuments", {bookmarked("Letter", "/docs/a.txt")});
  files.remove("/docs/a.txt");
  EXPECT_EQ(opened(), "RecentDocuments\n  Letter <recentItemSelected> {resource blankIcon 16x16}\n"
                      "----\n");
  choose("Letter");
  EXPECT_THAT(workspace.openedFiles, IsEmpty());
}

TEST_F(RecentItems, AnEntryWithoutABookmarkOpensTheVolumeOfItsName) {
  recent("RecentDocuments", {named("Letter")});
  EXPECT_EQ(opened(), "RecentDocuments\n  Letter <recentItemSelected>\n----\n");
  choose("Letter");
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/Volumes/Letter/"));
}

TEST_F(RecentItems, ABookmarkOfNoFileHasTheBlankIconAndDoesNothing) {
  files.bookmarkUrls.insert({{9}, "http://example.org/"});
  recent("RecentDocuments", {PropertyList::Dictionary{{"Name", "Site"}, {"Bookmark", Bytes{9}}}});
  EXPECT_EQ(opened(), "RecentDocuments\n  Site <recentItemSelected> {resource blankIcon 16x16}\n"
                      "----\n");
  choose("Site");
  EXPECT_THAT(workspace.openedFiles, IsEmpty());
}

TEST_F(RecentItems, AServerOpensTheVolumeOfItsName) {
  recent("RecentServers", {aliased("nas", alias), named("other")});
  EXPECT_EQ(opened(), R"(RecentServers
  nas <recentItemSelected> {resource serverIcon 16x16}
  other <recentItemSelected> {resource blankIcon 16x16}
)");
  EXPECT_FALSE(menu.items.at(1)->representedObject);
  choose("nas");
  hold(keyCode::command);
  choose("other");
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/Volumes/nas/", "/Volumes/other/"))
      << "Command has no say in it";
}

TEST_F(RecentItems, AServerThatIsMountedHasItsIcon) {
  files.addFolder("/Volumes/nas");
  files.aliasRecords[alias] = "/Volumes/nas";
  recent("RecentServers", {aliased("nas", alias)});
  EXPECT_EQ(opened(), "RecentServers\n  nas <recentItemSelected> {icon of /Volumes/nas 16x16}\n");
  EXPECT_THAT(files.aliasRecordsResolved, ElementsAre(AliasResolution::withoutInterface));
}

TEST_F(RecentItems, AChosenDocumentOpensWhereItIsNow) {
  recent("RecentDocuments", {bookmarked("Letter", "/docs/a.txt")});
  opened();
  files.move("/docs/a.txt", "/docs/moved.txt");
  choose("Letter");
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/docs/moved.txt"));
  EXPECT_EQ(files.bookmarksResolved.back(), BookmarkResolution::withoutInterface);
}

TEST_F(RecentItems, ADocumentThatWentSinceTheMenuOpenedDoesNothing) {
  recent("RecentDocuments", {bookmarked("Letter", "/docs/a.txt")});
  opened();
  files.remove("/docs/a.txt");
  choose("Letter");
  EXPECT_THAT(workspace.openedFiles, IsEmpty());
}

TEST_F(RecentItems, WithCommandADocumentIsRevealedInsteadOfOpened) {
  recent("RecentDocuments", {bookmarked("Letter", "/docs/a.txt")});
  opened();
  hold(keyCode::command);
  choose("Letter");
  EXPECT_THAT(said(),
              ElementsAre("tell application \"Finder\" to reveal \"/docs/a.txt\" as POSIX file"));
  EXPECT_THAT(workspace.openedFiles, IsEmpty());
}

TEST_F(RecentItems, WithoutIconsAFileHasNone) {
  showIcon = false;
  recent("RecentDocuments", {bookmarked("Letter", "/docs/a.txt")});
  EXPECT_EQ(opened(), "RecentDocuments\n  Letter <recentItemSelected>\n----\n");
}

class RecentItemsBeforeTenSix : public RecentItems {
protected:
  RecentItemsBeforeTenSix() { gOsVersion = 0x105F; }
};

TEST_F(RecentItemsBeforeTenSix, AreReadFromOtherKeysByTheirAliases) {
  files.aliasRecords[alias] = "/docs/a.txt";
  recent("Applications", {named("Edit")});
  recent("Documents", {aliased("Letter", alias), aliased("Lost", {7})});
  recent("Servers", {aliased("nas", {7})});
  recent("RecentDocuments", {named("of a later system")});
  EXPECT_EQ(opened(), R"(Applications
  Edit <recentItemSelected> {resource blankIcon 16x16}
----
Documents
  Letter <recentItemSelected> {icon of /docs/a.txt 16x16}
  Lost <recentItemSelected> {resource blankIcon 16x16}
----
Servers
  nas <recentItemSelected> {resource serverIcon 16x16}
)");
  EXPECT_EQ(menu.items.at(4)->representedObject, PropertyList(alias));
  EXPECT_EQ(menu.items.at(8)->representedObject, PropertyList(Bytes{7}));
}

TEST_F(RecentItemsBeforeTenSix, AChosenOneIsLookedForByItsIdentityFirst) {
  files.aliasRecords[alias] = "/docs/a.txt";
  recent("Documents", {aliased("Letter", alias), aliased("Lost", {7}), named("Nothing")});
  opened();
  files.aliasRecordsResolved.clear();
  for (const char* title : {"Letter", "Lost", "Nothing"})
    choose(title);
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/docs/a.txt"));
  EXPECT_THAT(files.aliasRecordsResolved, Each(AliasResolution::fileIdentifierFirst));
  EXPECT_THAT(files.aliasRecordsResolved, SizeIs(2));
  hold(keyCode::command);
  choose("Letter");
  EXPECT_THAT(said(), SizeIs(1));
  EXPECT_THAT(workspace.openedFiles, SizeIs(1));
}

} // namespace
} // namespace tavrel
