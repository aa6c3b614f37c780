#include "maint/NTLoginItemMgr.h"
#include "support/CoreTest.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* loginWindow = "loginwindow";
constexpr const char* itemsKey = "AutoLaunchedApplicationDictionary";

PropertyList item(const char* path, bool hide = false) {
  return PropertyList::Dictionary{{"Hide", hide}, {"Path", path}};
}

class LoginItems : public CoreTest {
protected:
  void list(PropertyList::Array items) {
    store()[loginWindow].insert_or_assign(itemsKey, std::move(items));
  }
  std::map<std::string, PropertyList::Dictionary>& store() {
    return desktop.preferences.control.store;
  }
  PropertyList::Array listed() { return *store()[loginWindow].at(itemsKey).array(); }
  std::vector<std::string>& synchronized() { return desktop.preferences.control.synchronized; }
};

TEST_F(LoginItems, WithoutADomainNothingIsListed) {
  EXPECT_EQ(NTLoginItemMgr::loginIndex("/a"), -1);
  EXPECT_FALSE(NTLoginItemMgr::isLoginItem("/a"));
}

TEST_F(LoginItems, AnEmptyListHasNoIndex) {
  list({});
  EXPECT_EQ(NTLoginItemMgr::loginIndex("/a"), -1);
}

TEST_F(LoginItems, AListThatIsNoneCountsAsMissing) {
  store()[loginWindow].insert_or_assign(itemsKey, "junk");
  EXPECT_EQ(NTLoginItemMgr::loginIndex("/a"), -1);
}

TEST_F(LoginItems, TheFirstMatchCounts) {
  list({item("/a"), item("/b"), item("/b", true)});
  EXPECT_EQ(NTLoginItemMgr::loginIndex("/b"), 1);
  EXPECT_TRUE(NTLoginItemMgr::isLoginItem("/b"));
}

TEST_F(LoginItems, ElementsThatAreNoItemsArePassedOver) {
  list({7, PropertyList::Dictionary{{"Path", 7}}, PropertyList::Dictionary{}, item("/b")});
  EXPECT_EQ(NTLoginItemMgr::loginIndex("/b"), 3);
}

TEST_F(LoginItems, ASlashAtTheEndOrAnotherCaseIsAnotherItem) {
  list({item("/Applications/A.app")});
  EXPECT_EQ(NTLoginItemMgr::loginIndex("/Applications/A.app/"), -1);
  EXPECT_EQ(NTLoginItemMgr::loginIndex("/applications/A.app"), -1);
}

TEST_F(LoginItems, TheFirstItemMakesTheDomain) {
  NTLoginItemMgr::addLoginItem("/a", LoginHide::yes);
  EXPECT_THAT(listed(), ElementsAre(item("/a", true)));
  EXPECT_THAT(synchronized(), ElementsAre(loginWindow));
}

TEST_F(LoginItems, AddingAppendsAndKeepsTheRestOfTheDomain) {
  list({item("/a")});
  store()[loginWindow].insert_or_assign("Other", 7);
  NTLoginItemMgr::addLoginItem("/b", LoginHide::no);
  EXPECT_THAT(listed(), ElementsAre(item("/a"), item("/b")));
  EXPECT_EQ(store()[loginWindow].at("Other"), PropertyList(7));
}

TEST_F(LoginItems, AddingWhatIsListedInTheMiddleMovesItToTheEndWithItsNewFlag) {
  list({item("/a"), item("/b"), item("/c")});
  NTLoginItemMgr::addLoginItem("/b", LoginHide::yes);
  EXPECT_THAT(listed(), ElementsAre(item("/a"), item("/c"), item("/b", true)));
}

TEST_F(LoginItems, OfAPathListedTwiceOnlyTheFirstIsRemoved) {
  list({item("/b"), item("/a"), item("/b", true)});
  NTLoginItemMgr::removeLoginItem("/b");
  EXPECT_THAT(listed(), ElementsAre(item("/a"), item("/b", true)));
}

TEST_F(LoginItems, RemovingWhatIsNotListedWritesNothing) {
  list({item("/a")});
  NTLoginItemMgr::removeLoginItem("/b");
  EXPECT_THAT(synchronized(), IsEmpty());
}

TEST_F(LoginItems, RemovingTheLastOneLeavesAnEmptyList) {
  list({item("/a")});
  NTLoginItemMgr::removeLoginItem("/a");
  EXPECT_THAT(listed(), IsEmpty());
}

TEST_F(LoginItems, KeysOfAnotherItemStay) {
  const PropertyList rich = PropertyList::Dictionary{{"Path", "/a"}, {"Kind", "x"}};
  list({rich, item("/b")});
  NTLoginItemMgr::removeLoginItem("/b");
  EXPECT_THAT(listed(), ElementsAre(rich));
}

TEST_F(LoginItems, TheFirstItemMovesToTheEnd) {
  list({item("/a"), item("/b"), item("/c")});
  NTLoginItemMgr::reorderLoginItemToEnd("/a", LoginHide::yes);
  EXPECT_THAT(listed(), ElementsAre(item("/b"), item("/c"), item("/a", true)));
}

TEST_F(LoginItems, TheSecondOfThreeStaysWhereItIs) {
  list({item("/a"), item("/b"), item("/c")});
  NTLoginItemMgr::reorderLoginItemToEnd("/b", LoginHide::yes);
  NTLoginItemMgr::reorderLoginItemToEnd("/x", LoginHide::yes);
  EXPECT_THAT(listed(), ElementsAre(item("/a"), item("/b"), item("/c")));
  EXPECT_THAT(synchronized(), IsEmpty());
}

} // namespace
} // namespace tavrel
