#include "support/CoreTest.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SettingsEntry : public ControllerTest {
protected:
  SettingsEntry() {
    desktop.files.control.addFile("/docs/a.txt");
    desktop.files.control.addFolder("/folder");
    setTree({record("url", "First")});
    controller.applicationWillFinishLaunching();
  }

  // As the menu is left when it is chosen from.
  void choose(bool alternate) {
    state.filesSelected = isSelectionFiles();
    MenuItem entry{.action = MenuAction::openTavrelPref};
    entry.isAlternate = alternate;
    controller.menuItemChosen(entry);
  }

  std::vector<std::string> titlesInTree() {
    std::vector<std::string> titles;
    for (const PropertyList& record :
         *desktop.preferences.control.store[preferenceDomain].at(TVR_MenuTree).array())
      titles.push_back(*record.stringFor(TVR_MenuItemTitle));
    return titles;
  }

  void expectThePane() {
    ASSERT_EQ(desktop.scripts.control.sources.size(), 1U);
    EXPECT_THAT(desktop.scripts.control.sources[0].text, ::testing::HasSubstr("reveal pane"));
  }

  std::vector<std::string>& played = desktop.sounds.control.played;
};

TEST_F(SettingsEntry, OpensThePreferencePane) {
  capture({"/docs/a.txt"});
  choose(false);
  expectThePane();
  EXPECT_THAT(titlesInTree(), ElementsAre("First"));
  EXPECT_THAT(played, IsEmpty());
}

TEST_F(SettingsEntry, ItsAlternateAddsTheCapturedFilesFirst) {
  capture({"/docs/a.txt", "/folder"});
  std::size_t inTree = 0;
  desktop.scripts.control.sourceRan = [&](const std::string&) { inTree = titlesInTree().size(); };
  choose(true);
  expectThePane();
  EXPECT_EQ(inTree, 3U) << "the pane shows what was added";
  EXPECT_THAT(titlesInTree(), ElementsAre("First", "a.txt", "folder"));
  EXPECT_THAT(played, ElementsAre("copy"));
  EXPECT_TRUE(state.needToRecreateMenu);
}

TEST_F(SettingsEntry, ItsAlternateTakesTheOtherFileListAsWell) {
  capture({"/docs/a.txt"}, pasteboardType::pathFinderFilenames);
  choose(true);
  EXPECT_THAT(titlesInTree(), ElementsAre("First", "a.txt"));
}

TEST_F(SettingsEntry, ItsAlternateWithoutCapturedFilesJustOpensThePane) {
  choose(true);
  expectThePane();
  EXPECT_THAT(titlesInTree(), ElementsAre("First"));
  EXPECT_THAT(played, IsEmpty());
  EXPECT_FALSE(state.needToRecreateMenu);
}

TEST_F(SettingsEntry, FilesCapturedAfterTheMenuOpenedDoNotCount) {
  MenuItem entry{.action = MenuAction::openTavrelPref};
  entry.isAlternate = true;
  capture({"/docs/a.txt"});
  controller.openTavrelPref(entry);
  EXPECT_THAT(titlesInTree(), ElementsAre("First"));
}

TEST_F(SettingsEntry, IsChosenFromTheMenu) {
  desktop.presenter.control.person = [](OpenMenu& open) {
    EXPECT_TRUE(open.choose({"Tavrel Setting"}));
  };
  desktop.statusBar.click();
  expectThePane();
}

} // namespace
} // namespace tavrel
