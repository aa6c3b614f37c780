#include "support/CoreTest.h"

#include "menu/MenuTitles.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RunningApplications : public ControllerTest {
protected:
  std::string opened() {
    controller.menuNeedsUpdate(menu);
    return menuText(menu, MenuTextDetail::everything);
  }

  RunningApplication start(const std::string& name, const std::string& path) {
    desktop.files.control.addApplication(path);
    return running.start(name, path);
  }

  void choose(const std::string& title) {
    MenuItem item{.title = title, .action = MenuAction::processItemSelected};
    controller.menuItemChosen(item);
  }

  std::vector<std::string> said() {
    std::vector<std::string> texts;
    for (const MemoryScripts::Source& source : desktop.scripts.control.sources)
      texts.push_back(source.text);
    return texts;
  }

  MemoryApplications::Control& running = desktop.applications.control;
  Menu menu{processMenuTitle};
};

TEST_F(RunningApplications, AreListedAsTheDesktopHasThemWithTheirIconsAndTheFrontOneTicked) {
  start("Zebra", "/apps/Zebra.app");
  start("Ape", "/apps/Ape.app");
  start("Mail", "/apps/Mail.app");
  EXPECT_EQ(opened(), R"(Zebra <processItemSelected> {icon of /apps/Zebra.app 16x16}
Ape <processItemSelected> {icon of /apps/Ape.app 16x16}
✓ Mail <processItemSelected> {icon of /apps/Mail.app 16x16}
)");
}

TEST_F(RunningApplications, OneWithoutANameIsLeftOut) {
  start("Mail", "/apps/Mail.app");
  running.running.front().name.reset();
  EXPECT_EQ(opened(), "");
}

TEST_F(RunningApplications, WithoutAnApplicationInFrontNoneIsTicked) {
  start("Mail", "/apps/Mail.app");
  running.active.reset();
  EXPECT_EQ(opened(), "Mail <processItemSelected> {icon of /apps/Mail.app 16x16}\n");
}

TEST_F(RunningApplications, OneInFrontThatHasNoPathIsNotTicked) {
  start("Mail", "/apps/Mail.app");
  running.active->path.reset();
  EXPECT_EQ(opened(), "Mail <processItemSelected> {icon of /apps/Mail.app 16x16}\n");
}

TEST_F(RunningApplications, AllOfTheNameInFrontAreTicked) {
  start("Mail", "/apps/Mail.app");
  start("Mail", "/apps/Other Mail.app");
  EXPECT_EQ(opened(), R"(✓ Mail <processItemSelected> {icon of /apps/Mail.app 16x16}
✓ Mail <processItemSelected> {icon of /apps/Other Mail.app 16x16}
)");
}

TEST_F(RunningApplications, TheListIsMadeAnewEachTime) {
  const RunningApplication mail = start("Mail", "/apps/Mail.app");
  opened();
  running.end(mail.serialNumber);
  EXPECT_EQ(opened(), "");
}

TEST_F(RunningApplications, AChosenOneComesToTheFront) {
  const RunningApplication mail = start("Mail", "/apps/Mail.app");
  start("Edit", "/apps/Edit.app");
  choose("Mail");
  EXPECT_THAT(running.broughtToFront, ElementsAre(mail.serialNumber));
  EXPECT_THAT(said(), IsEmpty());
}

TEST_F(RunningApplications, OfTwoWithOneNameTheFirstIsMeant) {
  const RunningApplication first = start("Mail", "/apps/Mail.app");
  start("Mail", "/apps/Other Mail.app");
  choose("Mail");
  EXPECT_THAT(running.broughtToFront, ElementsAre(first.serialNumber));
}

TEST_F(RunningApplications, OneThatHasEndedMeanwhileDoesNothing) {
  const RunningApplication mail = start("Mail", "/apps/Mail.app");
  running.end(mail.serialNumber);
  for (const std::uint16_t key : {keyCode::option, keyCode::command}) {
    choose("Mail");
    hold(key);
  }
  choose("Mail");
  EXPECT_THAT(running.broughtToFront, IsEmpty());
  EXPECT_THAT(said(), IsEmpty());
}

TEST_F(RunningApplications, WithOptionOneIsAskedToQuitByTheNameOfItsFile) {
  start("Letters", "/apps/Mail.app");
  hold(keyCode::option);
  hold(keyCode::command);
  choose("Letters");
  EXPECT_THAT(said(), ElementsAre("tell application \"Mail\" to quit"));
  EXPECT_EQ(desktop.scripts.control.sources[0].origin, ScriptOrigin::Application);
  EXPECT_THAT(running.broughtToFront, IsEmpty());
}

TEST_F(RunningApplications, AFailedQuitIsSilent) {
  start("Mail", "/apps/Mail.app");
  desktop.scripts.control.sourceErrors.emplace("tell application \"Mail\" to quit",
                                               PropertyList::Dictionary{});
  hold(keyCode::option);
  choose("Mail");
  EXPECT_THAT(desktop.log.control.lines, IsEmpty());
}

TEST_F(RunningApplications, WithCommandOneIsRevealed) {
  start("Mail", "/apps/Mail.app");
  hold(keyCode::command);
  choose("Mail");
  EXPECT_THAT(
      said(),
      ElementsAre("tell application \"Finder\" to reveal \"/apps/Mail.app\" as POSIX file"));
  EXPECT_THAT(running.broughtToFront, IsEmpty());
}

} // namespace
} // namespace tavrel
