#include "support/CoreTest.h"

#include "exec/FileActions.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Source = MemoryScripts::Source;

// What the actions on files say to other applications.
class FileScripts : public ControllerTest {
protected:
  std::string said() {
    if (control.sources.size() != 1)
      return std::to_string(control.sources.size()) + " sources";
    EXPECT_EQ(control.sources[0].origin, ScriptOrigin::Application);
    return control.sources[0].text;
  }

  std::string terminalSource(const std::string& command) {
    return "tell application \"terminal\"\nactivate\n if number of windows > 0 then \n"
           " do script (\"" +
           command + "\" as text) in window 1\n else\n do script (\"" + command +
           "\" as text)\n end if\n end tell\n";
  }

  MemoryScripts::Control& control = desktop.scripts.control;
  std::vector<std::string>& logged = desktop.log.control.lines;
  const PropertyList error = PropertyList::Dictionary{{"NSAppleScriptErrorNumber", 1}};
};

TEST_F(FileScripts, AFileIsRevealedInTheFinder) {
  showInFinder("/docs/a b.txt");
  EXPECT_EQ(said(), "tell application \"Finder\" to reveal \"/docs/a b.txt\" as POSIX file");
}

TEST_F(FileScripts, TheSettingsMayNamePathFinderInstead) {
  set(TVR_OpenWithPathFinder, true);
  showInFinder("/docs/a.txt");
  EXPECT_EQ(said(), "tell application \"Path Finder\" to reveal \"/docs/a.txt\" as POSIX file");
}

TEST_F(FileScripts, BehindALinkAndAnAliasTheTargetIsRevealed) {
  desktop.files.control.addFile("/docs/a.txt");
  desktop.files.control.addAlias("/alias", "/docs/a.txt");
  desktop.files.control.addSymlink("/link", "/alias");
  showInFinder("/link");
  EXPECT_EQ(said(), "tell application \"Finder\" to reveal \"/docs/a.txt\" as POSIX file");
}

TEST_F(FileScripts, APathIsRevealedAsItIsWritten) {
  showInFinder("/%@\" & (do shell script \"x\") & \"\\");
  EXPECT_EQ(said(), "tell application \"Finder\" to reveal "
                    "\"/%@\" & (do shell script \"x\") & \"\\\" as POSIX file");
}

TEST_F(FileScripts, ErrorsOfRevealingAreSilent) {
  control.sourceErrors.insert(
      {"tell application \"Finder\" to reveal \"/gone\" as POSIX file", error});
  showInFinder("/gone");
  EXPECT_EQ(control.sources.size(), 1U);
  EXPECT_THAT(logged, IsEmpty());
}

TEST_F(FileScripts, ATerminalGoesToTheFolder) {
  openFolderWithTerminal("/my docs");
  EXPECT_EQ(said(), terminalSource("cd '/my docs'"));
}

TEST_F(FileScripts, WithoutAFolderATerminalGoesHome) {
  openFolderWithTerminal("");
  EXPECT_EQ(said(), terminalSource("cd ~"));
}

TEST_F(FileScripts, ASingleQuoteInAFolderIsNotEscaped) {
  openFolderWithTerminal("/it's");
  EXPECT_EQ(said(), terminalSource("cd '/it's'"));
}

TEST_F(FileScripts, ATerminalTakesThePathAsItStands) {
  desktop.files.control.addFolder("/docs");
  desktop.files.control.addSymlink("/link", "/docs");
  openFolderWithTerminal("/link");
  EXPECT_EQ(said(), terminalSource("cd '/link'"));
}

TEST_F(FileScripts, AFailingTerminalIsLogged) {
  control.sourceErrors.insert({terminalSource("cd ~"), error});
  openFolderWithTerminal("");
  EXPECT_THAT(logged,
              ElementsAre("execScriptSource error {\n    NSAppleScriptErrorNumber = 1;\n}"));
}

class OpeningAFolder : public FileScripts {
protected:
  OpeningAFolder() { desktop.files.control.addFolder("/folder"); }
  std::vector<std::string>& opened = desktop.workspace.control.openedFiles;
  const std::string pathFinder =
      "tell application \"Path Finder\" to open \"/folder\" as POSIX file";
};

TEST_F(OpeningAFolder, IsTheWorkspacesUnlessTheSettingsNamePathFinder) {
  controller.openFolder("/folder");
  EXPECT_THAT(opened, ElementsAre("/folder"));
  EXPECT_THAT(control.sources, IsEmpty());
}

TEST_F(OpeningAFolder, GoesToPathFinderAloneWhenTheSettingsSaySo) {
  set(TVR_OpenWithPathFinder, true);
  controller.openFolder("/folder");
  EXPECT_EQ(said(), pathFinder);
  EXPECT_THAT(opened, IsEmpty());
}

TEST_F(OpeningAFolder, ErrorsOfPathFinderAreSilent) {
  set(TVR_OpenWithPathFinder, true);
  control.sourceErrors.insert({pathFinder, error});
  controller.openFolder("/folder");
  EXPECT_THAT(opened, IsEmpty());
  EXPECT_THAT(logged, IsEmpty());
}

TEST_F(OpeningAFolder, FallsBackToTheWorkspaceWhenNoScriptCanBeMade) {
  set(TVR_OpenWithPathFinder, true);
  control.unusableSources = {pathFinder};
  controller.openFolder("/folder");
  EXPECT_THAT(opened, ElementsAre("/folder"));
}

} // namespace
} // namespace tavrel
