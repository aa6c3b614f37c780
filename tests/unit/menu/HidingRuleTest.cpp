#include "menu/HidingRule.h"

#include "controller/HostContext.h"
#include "support/CoreTest.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HiddenEntries : public ControllerTest {
protected:
  HiddenEntries() {
    showIcon = false;
    desktop.log.control.debugOn = true;
    state.hostName = "Finder";
    capture({"/docs/a"});
  }

  std::vector<std::string> explained(PropertyList::Array records) {
    Menu menu;
    controller.createContextMenu(menu, records, 1);
    controller.validateContextMenu(menu, records, 1);
    return desktop.log.control.debugLines;
  }
};

PropertyList urlRecord(const char* title, PropertyList::Dictionary more = {}) {
  return record("url", title, std::move(more));
}

const PropertyList forMail =
    urlRecord("Reply", {{TVR_MenuItemInvokers, PropertyList::Array{"/apps/Mail.app", "Letters"}}});
const PropertyList forImages =
    urlRecord("Resize", {{TVR_MenuItemSelectionTypes, PropertyList::Array{"image", "url"}}});

TEST_F(HiddenEntries, OneThatIsOfferedElsewhereNamesTheApplications) {
  EXPECT_THAT(explained({forMail}),
              ElementsAre("\"Reply\" is hidden: it is offered in /apps/Mail.app, Letters only, "
                          "and \"Finder\" is in front"));
}

TEST_F(HiddenEntries, OneThatIsOfferedForOtherSelectionsNamesTheirKindsAndWhatThereIs) {
  EXPECT_THAT(explained({forImages}),
              ElementsAre("\"Resize\" is hidden: it is offered for image, url only, "
                          "and the selection holds NSFilenamesPboardType"));
}

TEST_F(HiddenEntries, OnesInsideGroupsAreExplained) {
  EXPECT_THAT(
      explained({record("group", "More", {{TVR_MenuItemTree, PropertyList::Array{forMail}}})}),
      ElementsAre(::testing::StartsWith("\"Reply\" is hidden: ")));
}

TEST_F(HiddenEntries, OnesThatShowAreNotTalkedAbout) {
  EXPECT_THAT(explained({urlRecord("Site")}), IsEmpty());
}

TEST_F(HiddenEntries, NothingIsSaidWhileTheLogIsOff) {
  desktop.log.control.debugOn = false;
  EXPECT_THAT(explained({forMail, forImages}), IsEmpty());
  EXPECT_THAT(desktop.log.control.lines, IsEmpty());
}

TEST_F(HiddenEntries, TheSelectedFolderSaysWhatItWaitsFor) {
  controller.createStatusMenu();
  controller.validateContextMenu(state.statusMenu, {}, 0);
  state.settings.browseFolder = false;
  controller.validateContextMenu(state.statusMenu, {}, 0);
  EXPECT_THAT(desktop.log.control.debugLines,
              ElementsAre("\"Selected Folder\" is hidden: not one folder alone is selected",
                          "\"Selected Folder\" is hidden: folders are not browsed by the "
                          "settings"));
}

TEST_F(HiddenEntries, TheApplicationIsAskedBeforeTheSelection) {
  const PropertyList both =
      urlRecord("Both", {{TVR_MenuItemInvokers, PropertyList::Array{"Mail"}},
                         {TVR_MenuItemSelectionTypes, PropertyList::Array{"image"}}});
  EXPECT_EQ(hidingRule({.hostName = "Finder"}, both), HidingRule::otherApplication);
  EXPECT_EQ(hidingRule({.hostName = "Mail"}, both), HidingRule::otherSelection);
  EXPECT_EQ(hidingRule({.hostName = "Mail"}, forMail), HidingRule::none);
}

} // namespace
} // namespace tavrel
