#include "platform/linux/applications/ApplicationNames.h"

#include "FakeApplications.h"
#include "support/EnvironmentVariable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

/// Entries of the user above those of the system.
class ApplicationNames : public ::testing::Test {
protected:
  static fs::path add(const fs::path& data, const std::string& id, const std::string& lines) {
    const fs::path path = data / "applications" / id;
    fs::create_directories(path.parent_path());
    write(path, "[Desktop Entry]\nType=Application\n" + lines);
    return path;
  }

  /// The application of an id as it runs.
  RunningApplication running(const std::string& id, const std::string& executable = {}) {
    registry.refresh();
    const InstalledApplication* found = registry.find(id);
    EXPECT_NE(found, nullptr) << id;
    RunningApplication application;
    if (found == nullptr)
      return application;
    application.name = displayNameOf(*found);
    application.path = found->path;
    application.otherNames = otherNamesOf(*found, executable);
    return application;
  }

  void expectMeant(const RunningApplication& front, const std::vector<std::string>& texts) {
    for (const std::string& text : texts)
      EXPECT_EQ(nameMeantBy(text, front, registry), front.name) << text;
  }
  void expectOther(const RunningApplication& front, const std::vector<std::string>& texts) {
    for (const std::string& text : texts)
      EXPECT_NE(nameMeantBy(text, front, registry), front.name) << text;
  }

  ScratchFolder scratch;
  fs::path home = scratch.path() / "home";
  fs::path system = scratch.path() / "system";
  EnvironmentVariable locale{"LC_ALL", "de_DE.UTF-8"};
  ApplicationRegistry registry{{{home, system}, {scratch.path()}, {}}};
};

TEST_F(ApplicationNames, AnApplicationIsMeantByItsNameItsEntryAndItsProgram) {
  const fs::path entry =
      add(system, "org.example.editor.desktop", "Name=Editor\nExec=\"edit\" %U\n");
  const RunningApplication editor = running("org.example.editor.desktop", "/opt/lib/edit-bin");
  EXPECT_EQ(editor.name, "Editor");
  expectMeant(editor, {"Editor", "org.example.editor", "org.example.editor.desktop", entry.string(),
                       "edit", "/usr/bin/edit", "edit-bin", "/opt/lib/edit-bin",
                       "/Applications/Editor.app", "/Applications/Editor.app/"});
  expectOther(editor, {"", "/", ".desktop", "editor", "EDITOR", "org.example", "Edit", "Editor "});
}

TEST_F(ApplicationNames, ATranslatedApplicationIsMeantByItsUntranslatedNameToo) {
  add(system, "a.desktop", "Name=Drawing\nName[de]=Zeichnung für Größen\nName[fr]=Dessin\n");
  const RunningApplication drawing = running("a.desktop");
  EXPECT_EQ(drawing.name, "Zeichnung für Größen");
  expectMeant(drawing, {"Zeichnung für Größen", "Drawing"});
  expectOther(drawing, {"Dessin", "Zeichnung für Grössen"});
}

TEST_F(ApplicationNames, ANameKeepsItsFullStopsAndSlashes) {
  add(system, "a.desktop", "Name=Größe 2.0\n");
  add(system, "b.desktop", "Name=TCP/IP\n");
  expectMeant(running("a.desktop"), {"Größe 2.0"});
  expectOther(running("a.desktop"), {"Größe 2", "Größe 2.1"});
  expectMeant(running("b.desktop"), {"TCP/IP"});
  expectOther(running("b.desktop"), {"IP"});
}

TEST_F(ApplicationNames, WhatIsAnotherApplicationInFullLosesNoEnding) {
  add(system, "a.desktop", "Name=Foo 2\n");
  const RunningApplication foo = running("a.desktop");
  expectMeant(foo, {"Foo 2.app", "Foo 2.0"});
  add(system, "b.desktop", "Name=Deux\nName[de]=Foo 2.0\n");
  add(system, "Foo 2.x.desktop", "Name=Other\n");
  registry.refresh();
  expectMeant(foo, {"Foo 2.app"});
  expectOther(foo, {"Foo 2.0", "Foo 2.x"});
}

TEST_F(ApplicationNames, OfTwoWithTheSameNameEachHasItsOwnEntry) {
  add(system, "a.desktop", "Name=Editor\nName[de]=Schreiber\nExec=shared --a\n");
  add(system, "b.desktop", "Name=Editor\nExec=shared --b\n");
  const RunningApplication a = running("a.desktop");
  const RunningApplication b = running("b.desktop");
  expectMeant(a, {"Editor", "Schreiber", "a", "a.desktop", "shared"});
  expectOther(a, {"b", "b.desktop", "/x/applications/b.desktop"});
  expectMeant(b, {"Editor", "b", "b.desktop", "shared"});
  expectOther(b, {"Schreiber", "a"});
}

TEST_F(ApplicationNames, TheUsersEntryIsMeantByThatOfTheSystem) {
  const fs::path hidden = add(system, "a.desktop", "Name=Theirs\nExec=x\n");
  const fs::path own = add(home, "a.desktop", "Name=Mine\nExec=y\n");
  const RunningApplication mine = running("a.desktop");
  EXPECT_EQ(mine.name, "Mine");
  expectMeant(mine, {"Mine", own.string(), hidden.string(), "y"});
  expectOther(mine, {"Theirs", "x"});
}

TEST_F(ApplicationNames, AnEntryInAFolderIsMeantByItsFileAndByItsId) {
  const fs::path entry = add(system, "kde/editor.desktop", "Name=K\n");
  expectMeant(running("kde-editor.desktop"),
              {"kde-editor", "kde-editor.desktop", "editor", entry.string()});
}

TEST_F(ApplicationNames, AnInterpreterIsNobodysName) {
  add(system, "a.desktop", "Name=A\nExec=python3 /opt/a.py\n");
  expectOther(running("a.desktop", "/usr/bin/python3.11"), {"python3", "/usr/bin/python3.11"});
}

TEST_F(ApplicationNames, WithoutANameTheEntrysFileIsTheName) {
  add(system, "org.example.a.desktop", "");
  EXPECT_EQ(running("org.example.a.desktop").name, "org.example.a");
}

TEST_F(ApplicationNames, NobodyTakesANameThatStandsForAnother) {
  for (const char* name : {"Finder", "Path Finder", "Tavrel", "TextEdit"}) {
    add(system, "a.desktop", std::string("Name=") + name + "\n");
    EXPECT_EQ(running("a.desktop").name, "a");
    expectOther(running("a.desktop"), {name});
  }
}

TEST_F(ApplicationNames, AFileManagerIsMeantByItsRoleAndItsOwnNames) {
  add(system, "manager.desktop", "Name=Folders\nExec=manage\n");
  RunningApplication finder = running("manager.desktop");
  finder.name = "Finder";
  finder.path = "/roles/Finder.desktop";
  expectMeant(finder, {"Finder", "Folders", "manager", "manage", "/roles/Finder.desktop"});
  expectOther(finder, {"Path Finder"});
}

TEST_F(ApplicationNames, AProgramWithoutAnEntryIsMeantByItsFile) {
  RunningApplication program;
  program.name = "Class"; // of its window, as when it is a script
  program.path = "/usr/bin/python3.11";
  program.otherNames = otherNamesOf(*program.path);
  expectMeant(program, {"Class", "python3.11", "python3", "/usr/bin/python3.11"});
  expectOther(program, {"python", "/usr/bin"});
}

} // namespace
} // namespace tavrel
