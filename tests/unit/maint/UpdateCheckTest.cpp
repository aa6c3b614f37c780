#include "maint/UpdateCheck.h"
#include "support/CoreTest.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class UpdateCheck : public ControllerTest {
protected:
  UpdateCheck() {
    desktop.bundle.control.strings = {
        {"UPDATE_PLIST_URL", listAddress},       {"HistoryPageURL", "http://x/history"},
        {"UP_TO_DATE_TITLE", "%@ is current"},   {"UP_TO_DATE_TEXT", "Nothing newer than %@"},
        {"NEW_VERSION_TITLE", "New %@"},         {"NEW_VERSION_TEXT", "%@ %@ is there"},
        {"UPDATE_ERROR_TITLE", "No list of %@"}, {"UPDATE_ERROR_TEXT", "%@ could not look"}};
    desktop.clock.control.now = 1000000;
  }

  void install(const char* version) { set(TVR_VersionString, version); }

  void offer(PropertyList::Dictionary entry) {
    desktop.web.control.dictionaries.insert_or_assign(
        listAddress, PropertyList::Dictionary{{"qorvane.Tavrel2", std::move(entry)}});
  }
  void offer(const char* version) { offer({{"version", version}, {"url", "http://x/get"}}); }

  double lastCheck() { return TVR_DoubleForKey(TVR_LastUpdateCheck); }

  static constexpr const char* listAddress = "http://x/list.plist";
  std::vector<AlertPanel>& shown = desktop.alerts.control.shown;
  std::vector<std::string>& fetched = desktop.web.control.fetched;
  std::vector<std::string>& opened = desktop.workspace.control.openedUrls;
};

TEST_F(UpdateCheck, TheFirstUseChecksAtOnce) {
  doCheckUpdates();
  EXPECT_THAT(fetched, ElementsAre(listAddress));
}

TEST_F(UpdateCheck, AfterExactlyTenDaysNothingHappens) {
  set(TVR_LastUpdateCheck, desktop.clock.control.now - 864000.0);
  doCheckUpdates();
  EXPECT_THAT(fetched, IsEmpty());
}

TEST_F(UpdateCheck, OneSecondLaterTheCheckRuns) {
  set(TVR_LastUpdateCheck, desktop.clock.control.now - 864001.0);
  doCheckUpdates();
  EXPECT_THAT(fetched, SizeIs(1));
}

TEST_F(UpdateCheck, SwitchedOffItNeverStoresATime) {
  set(TVR_OnlineUpdateCheck, false);
  doCheckUpdates();
  EXPECT_THAT(fetched, IsEmpty());
  EXPECT_EQ(lastCheck(), 0.0);
}

TEST_F(UpdateCheck, AStoredTimeInTheFutureHoldsItBack) {
  set(TVR_LastUpdateCheck, desktop.clock.control.now + 5);
  doCheckUpdates();
  EXPECT_THAT(fetched, IsEmpty());
  desktop.clock.control.now += 5 + 864001;
  doCheckUpdates();
  EXPECT_THAT(fetched, SizeIs(1));
}

TEST_F(UpdateCheck, TheTimeIsStoredWhateverCameOfIt) {
  doCheckUpdates();
  EXPECT_EQ(lastCheck(), desktop.clock.control.now);
  EXPECT_THAT(shown, IsEmpty());
}

TEST_F(UpdateCheck, TheDomainIsNotSynchronised) {
  desktop.preferences.control.synchronized.clear();
  doCheckUpdates();
  EXPECT_THAT(desktop.preferences.control.synchronized, IsEmpty());
}

TEST_F(UpdateCheck, TheSecondUseDoesNotCheckAgain) {
  doCheckUpdates();
  doCheckUpdates();
  EXPECT_THAT(fetched, SizeIs(1));
}

TEST_F(UpdateCheck, TheTimeIsTheOneAfterTheCheck) {
  offer("9");
  desktop.alerts.control.onShow = [this] { desktop.clock.control.now += 100; };
  doCheckUpdates();
  EXPECT_EQ(lastCheck(), 1000100.0);
}

TEST_F(UpdateCheck, TheVersionOfTheBundleCountsAsInstalled) {
  desktop.bundle.control.information["CFBundleShortVersionString"] = "2.5";
  install("1.0");
  offer("2.5");
  doCheckUpdates();
  EXPECT_THAT(shown, IsEmpty());
  EXPECT_EQ(TVR_StringForKey(TVR_VersionString), "2.5");
}

TEST_F(UpdateCheck, AVersionThatSomebodyElseWroteStaysUnlessItIsOlder) {
  desktop.bundle.control.information["CFBundleShortVersionString"] = "0.1.0";
  install("2.5");
  offer("2.5");
  doCheckUpdates();
  EXPECT_THAT(shown, IsEmpty());
  EXPECT_EQ(TVR_StringForKey(TVR_VersionString), "2.5");
}

TEST_F(UpdateCheck, TheSameVersionIsSilent) {
  install("2.5");
  offer("2.5");
  EXPECT_TRUE(checkForUpdatesAndNotifyIfUnsuccessful(NotifyIfUnsuccessful::no));
  EXPECT_THAT(shown, IsEmpty());
}

TEST_F(UpdateCheck, AMissingInstalledVersionIsOlderThanAnyListed) {
  offer("1.0");
  EXPECT_TRUE(checkForUpdatesAndNotifyIfUnsuccessful(NotifyIfUnsuccessful::no));
  EXPECT_THAT(shown, SizeIs(1));
}

TEST_F(UpdateCheck, VersionsAreDecimalNumbers) {
  const std::vector<std::pair<const char*, const char*>> notNewer{
      {"2.9", "2.10"}, {"2.5", "2.5.9"}, {"2.5", "2.5b1"}, {"0", "beta"}, {"1e1", "9"}};
  for (const auto& [installed, listed] : notNewer) {
    install(installed);
    desktop.preferences.synchronize(preferenceDomain);
    offer(listed);
    EXPECT_TRUE(checkForUpdatesAndNotifyIfUnsuccessful(NotifyIfUnsuccessful::no));
    EXPECT_THAT(shown, IsEmpty()) << installed << " and " << listed;
  }
}

TEST_F(UpdateCheck, TheNewVersionIsOfferedWithThreeButtons) {
  install("2.5");
  offer("2.6");
  doCheckUpdates();
  ASSERT_THAT(shown, SizeIs(1));
  EXPECT_EQ(shown[0].title, "New Tavrel");
  EXPECT_EQ(shown[0].message, "Tavrel 2.6 is there");
  EXPECT_EQ(shown[0].defaultButton, "Download and Show History");
  EXPECT_EQ(shown[0].alternateButton, "Cancel");
  EXPECT_EQ(shown[0].otherButton, "Download");
}

TEST_F(UpdateCheck, CancelOpensNothing) {
  offer("9");
  desktop.alerts.control.answers = {AlertAnswer::alternate};
  doCheckUpdates();
  EXPECT_THAT(opened, IsEmpty());
}

TEST_F(UpdateCheck, DownloadOpensOnlyTheDownload) {
  offer("9");
  desktop.alerts.control.answers = {AlertAnswer::other};
  doCheckUpdates();
  EXPECT_THAT(opened, ElementsAre("http://x/get"));
}

TEST_F(UpdateCheck, DownloadAndShowHistoryOpensBothInThisOrder) {
  offer("9");
  desktop.alerts.control.answers = {AlertAnswer::standard};
  doCheckUpdates();
  EXPECT_THAT(opened, ElementsAre("http://x/get", "http://x/history"));
}

TEST_F(UpdateCheck, WithoutAnAddressTheHistoryIsStillShown) {
  offer({{"version", "9"}});
  desktop.alerts.control.answers = {AlertAnswer::standard};
  doCheckUpdates();
  EXPECT_THAT(opened, ::testing::Contains("http://x/history"));
}

TEST_F(UpdateCheck, WithoutAnAddressOfTheListNothingIsFetched) {
  desktop.bundle.control.strings["UPDATE_PLIST_URL"] = "";
  doCheckUpdates();
  EXPECT_THAT(fetched, IsEmpty());
  EXPECT_THAT(shown, IsEmpty());
}

TEST_F(UpdateCheck, AListOpensPagesOfTheWebAlone) {
  for (const char* url : {"file:///tmp/x.desktop", "/tmp/x.desktop", "smb://host/x", "http:/x",
                          "x-https://x", "", "javascript:x", "HTTPS://x/get"}) {
    offer({{"version", "9"}, {"url", url}});
    desktop.alerts.control.answers = {AlertAnswer::other};
    (void)checkForUpdatesAndNotifyIfUnsuccessful(NotifyIfUnsuccessful::no);
  }
  EXPECT_THAT(opened, ElementsAre("HTTPS://x/get"));
}

TEST_F(UpdateCheck, WhoeverAskedHearsThatNothingIsNewer) {
  install("3");
  offer("2");
  EXPECT_TRUE(checkForUpdatesAndNotifyIfUnsuccessful(NotifyIfUnsuccessful::yes));
  ASSERT_THAT(shown, SizeIs(1));
  EXPECT_EQ(shown[0].title, "Tavrel is current");
  EXPECT_EQ(shown[0].message, "Nothing newer than Tavrel");
  EXPECT_EQ(shown[0].defaultButton, "OK");
  EXPECT_EQ(shown[0].alternateButton, "");
}

TEST_F(UpdateCheck, AMissingEntryIsNothingNewer) {
  desktop.web.control.dictionaries.insert({listAddress, PropertyList::Dictionary{}});
  EXPECT_TRUE(checkForUpdatesAndNotifyIfUnsuccessful(NotifyIfUnsuccessful::no));
  EXPECT_THAT(shown, IsEmpty());
}

TEST_F(UpdateCheck, ANewVersionWithoutItsNumberIsAFailure) {
  install("-1");
  offer({{"url", "http://x/get"}});
  EXPECT_FALSE(checkForUpdatesAndNotifyIfUnsuccessful(NotifyIfUnsuccessful::no));
  EXPECT_THAT(shown, IsEmpty());
}

TEST_F(UpdateCheck, WhoeverAskedHearsOfAFailure) {
  EXPECT_FALSE(checkForUpdatesAndNotifyIfUnsuccessful(NotifyIfUnsuccessful::yes));
  ASSERT_THAT(shown, SizeIs(1));
  EXPECT_EQ(shown[0].title, "No list of Tavrel");
  EXPECT_EQ(shown[0].message, "Tavrel could not look");
  EXPECT_EQ(shown[0].defaultButton, "OK");
}

TEST_F(UpdateCheck, ItRunsBeforeAnItemOfTheTree) {
  desktop.alerts.control.onShow = [this] {
    EXPECT_THAT(desktop.workspace.control.openedUrls, IsEmpty());
  };
  offer("9");
  controller.executeItem(record("url", "U", {{TVR_MenuItemURL, "http://a.b"}}), false, nullptr);
  EXPECT_THAT(shown, SizeIs(1));
  EXPECT_THAT(opened, ElementsAre("http://a.b"));
}

TEST_F(UpdateCheck, ItRunsBeforeAFileOfABrowsedFolder) {
  desktop.files.control.addFile("/f/a.txt");
  MenuItem entry{.representedObject = PropertyList("/f/a.txt")};
  controller.fileItemDidSelected(entry);
  EXPECT_THAT(fetched, SizeIs(1));
}

TEST_F(UpdateCheck, NoneRunsAtLaunch) {
  controller.applicationWillFinishLaunching();
  controller.applicationDidFinishLaunching();
  EXPECT_THAT(fetched, IsEmpty());
}

} // namespace
} // namespace tavrel
