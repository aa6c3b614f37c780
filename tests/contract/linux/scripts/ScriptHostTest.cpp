#include "contract/linux/scripts/ScriptHostFixture.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QThread>

#include <mutex>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// The bus name that shows items, as file managers have it.
class ItemShower final : public QDBusVirtualObject {
public:
  ItemShower() {
    moveToThread(&thread_);
    thread_.start();
    bus_.registerVirtualObject("/org/freedesktop/FileManager1", this);
    bus_.registerService("org.freedesktop.FileManager1");
  }
  ~ItemShower() override {
    bus_.unregisterService("org.freedesktop.FileManager1");
    bus_.unregisterObject("/org/freedesktop/FileManager1");
    thread_.quit();
    thread_.wait();
    QDBusConnection::disconnectFromBus("item shower");
  }
  [[nodiscard]] QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    const std::scoped_lock lock(mutex_);
    for (const QString& url : message.arguments().value(0).toStringList())
      shown_.push_back(url.toStdString());
    return bus.send(message.createReply());
  }
  std::vector<std::string> shown() {
    const std::scoped_lock lock(mutex_);
    return shown_;
  }

private:
  QThread thread_;
  std::mutex mutex_;
  std::vector<std::string> shown_;
  QDBusConnection bus_ = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "item shower");
};

using ScriptHostTest = ScriptHostFixture;

TEST_F(ScriptHostTest, AShellCommandGivesWhatItPrints) {
  EXPECT_EQ(result("do shell script \"printf 'a\\\\nb\\\\n'\""), "\"a\rb\"");
  EXPECT_EQ(result("do shell script \"printf 'a\\\\nb\\\\n'\" without altering line endings"),
            "\"a\nb\"");
}

TEST_F(ScriptHostTest, AShellCommandFailsWithItsStatusAndItsComplaint) {
  EXPECT_EQ(result("do shell script \"echo no >&2; exit 7\""), "error 7: no");
}

TEST_F(ScriptHostTest, AQuotedFormIsOneWordOfTheShell) {
  EXPECT_EQ(result("do shell script \"printf %s \" & quoted form of \"it's; $(x)\""),
            "\"it's; $(x)\"");
}

TEST_F(ScriptHostTest, FilesAreReadAndWritten) {
  EXPECT_EQ(result("write \"one\" to POSIX file " + quoted("file")), "missing value");
  EXPECT_EQ(result("write \" two\" to POSIX file " + quoted("file") + " starting at eof"),
            "missing value");
  EXPECT_EQ(contents("file"), "one two");
  EXPECT_EQ(result("read POSIX file " + quoted("file") + " from 5"), "\"two\"");
  EXPECT_EQ(result("get eof (POSIX file " + quoted("file") + ")"), "7");
}

TEST_F(ScriptHostTest, AnOpenFileIsGoneOnWith) {
  EXPECT_EQ(result("set f to open for access POSIX file " + quoted("file") +
                   " with write permission\nset eof f to 0\nwrite \"one\\n\" to f\n"
                   "write \"two\\n\" to f\nwrite \"three\" to f for 2\nclose access f"),
            "missing value");
  EXPECT_EQ(contents("file"), "one\ntwo\nth");
  EXPECT_EQ(result("set f to open for access POSIX file " + quoted("file") +
                   "\nset l to {}\ntry\nrepeat\nset end of l to read f before linefeed\n"
                   "end repeat\non error number -39\nend try\nclose access f\nl"),
            "{\"one\", \"two\", \"th\"}");
  EXPECT_EQ(result("read POSIX file " + quoted("file") + " until linefeed"), "\"one\n\"");
}

TEST_F(ScriptHostTest, AFileThatAScriptLeftOpenIsReadFromItsStartByTheNext) {
  write("file", "one two");
  const std::string file = "POSIX file " + quoted("file");
  EXPECT_EQ(result("set f to open for access " + file + "\nread f for 4"), "\"one \"");
  EXPECT_EQ(result("read " + file + " for 3"), "\"one\"");
}

TEST_F(ScriptHostTest, APartOfAFileIsReadAndTakenApart) {
  write("file", "a,b;c");
  const std::string file = "read POSIX file " + quoted("file");
  EXPECT_EQ(result(file + " from 2 to 3"), "\",b\"");
  EXPECT_EQ(result(file + " from 2 to eof"), "\",b;c\"");
  EXPECT_EQ(result(file + " using delimiter \",\""), "{\"a\", \"b;c\"}");
  EXPECT_EQ(result(file + " using delimiters {\",\", \";\"}"), "{\"a\", \"b\", \"c\"}");
  EXPECT_THAT(result(file + " as list"), HasSubstr("error -1700"));
  EXPECT_EQ(result(file + " as «class utf8»"), "\"a,b;c\"");
}

TEST_F(ScriptHostTest, AMissingFileIsAnError) {
  EXPECT_THAT(result("read POSIX file " + quoted("missing")), HasSubstr("error -43"));
}

TEST_F(ScriptHostTest, APathThatCannotBeIsAnErrorInEveryCommand) {
  const std::string file = "(POSIX file " + quoted(std::string(300, 'x')) + ")";
  for (const std::string& command :
       {"read " + file, "write \"a\" to " + file, "get eof " + file, "set eof " + file + " to 0",
        "info for " + file, "list folder " + file,
        "open for access " + file + " with write permission"})
    EXPECT_THAT(result(command), HasSubstr("error -")) << command;
}

TEST_F(ScriptHostTest, APathIsNeverCutShort) {
  write("file", "kept");
  EXPECT_THAT(result("write \"lost\" to POSIX file (" + quoted("file") + " & character id 0)"),
              HasSubstr("error -"));
  EXPECT_EQ(contents("file"), "kept");
}

TEST_F(ScriptHostTest, WhatIsNoTextIsNotReadAsText) {
  write("file", "caf\xe9");
  EXPECT_THAT(result("read POSIX file " + quoted("file")), HasSubstr("error -1700"));
  EXPECT_EQ(result("read POSIX file " + quoted("file") + " for 3"), "\"caf\"");
}

TEST_F(ScriptHostTest, MeasuresBeyondAllFilesAreTakenAsTheirEnds) {
  write("file", "text");
  const std::string file = "POSIX file " + quoted("file");
  EXPECT_EQ(result("read " + file + " for 1.0E+300"), "\"text\"");
  EXPECT_EQ(result("read " + file + " for \"inf\""), "\"\"");
  EXPECT_EQ(result("read " + file + " from \"nan\""), "\"text\"");
}

TEST_F(ScriptHostTest, AFolderIsListedWithOrWithoutWhatIsHidden) {
  for (const char* name : {"b", "a", ".hidden"})
    write(name, "");
  const std::string folder = "POSIX file \"" + scratch.path().string() + "\"";
  EXPECT_EQ(result("list folder " + folder), "{\".hidden\", \"a\", \"b\"}");
  EXPECT_EQ(result("list folder " + folder + " without invisibles"), "{\"a\", \"b\"}");
}

TEST_F(ScriptHostTest, TheFileManagerKnowsWhatIsThere) {
  write("file", "");
  EXPECT_EQ(result("tell application \"Finder\" to exists POSIX file " + quoted("file")), "true");
  EXPECT_EQ(result("tell application \"Finder\" to exists POSIX file " + quoted("none")), "false");
}

TEST_F(ScriptHostTest, RevealingAsksTheFileManagerOnTheBus) {
  ItemShower shower;
  write("a b", "");
  EXPECT_EQ(result("tell application \"Finder\" to reveal " + quoted("a b") + " as POSIX file"),
            "missing value");
  EXPECT_THAT(shower.shown(), ElementsAre("file://" + (scratch.path() / "a%20b").string()));
}

TEST_F(ScriptHostTest, RevealingWhatIsNotThereIsAnError) {
  EXPECT_THAT(result("tell application \"Finder\" to reveal " + quoted("none") + " as POSIX file"),
              HasSubstr("error -43"));
}

TEST_F(ScriptHostTest, FilesMoveAndAreCopiedIntoFolders) {
  write("file", "x");
  fs::create_directory(scratch.path() / "folder");
  EXPECT_EQ(result("tell application \"Finder\" to duplicate POSIX file " + quoted("file") +
                   " to POSIX file " + quoted("folder")),
            "POSIX file " + quoted("folder/file"));
  EXPECT_TRUE(fs::exists(scratch.path() / "file"));
  EXPECT_THAT(result("tell application \"Finder\" to move POSIX file " + quoted("file") +
                     " to POSIX file " + quoted("folder")),
              HasSubstr("error -2700"))
      << "nothing is written over";
  EXPECT_EQ(contents("folder/file"), "x");
}

TEST_F(ScriptHostTest, AnApplicationIsStartedByItsName) {
  (void)fakes.add("Scribble");
  EXPECT_EQ(result("tell application \"scribble\" to activate"), "missing value");
  EXPECT_TRUE(waitFor([&] { return fakes.starts("Scribble").size() == 1; }));
}

TEST_F(ScriptHostTest, AnApplicationOpensFiles) {
  (void)fakes.add("Scribble");
  write("a b", "");
  EXPECT_EQ(result("tell application \"Scribble\" to open POSIX file " + quoted("a b")),
            "missing value");
  EXPECT_EQ(fakes.awaitArguments("Scribble", 1).size(), 1U);
}

TEST_F(ScriptHostTest, WhetherAnApplicationRunsCanBeAskedOfAny) {
  EXPECT_EQ(result("application \"No Such Thing\" is running"), "false");
}

TEST_F(ScriptHostTest, AnUnknownApplicationIsAnErrorWithANumber) {
  for (const char* command : {"activate", "quit", "launch", "open POSIX file \"/tmp\""})
    EXPECT_THAT(result(std::string("tell application \"No Such Thing\" to ") + command),
                HasSubstr("error -1728"))
        << command;
}

TEST_F(ScriptHostTest, AnUnknownTermIsAnErrorWithANumber) {
  (void)fakes.add("Scribble");
  EXPECT_THAT(result("tell application \"Scribble\" to close"), HasSubstr("error -1708"));
  EXPECT_THAT(result("tell application \"Scribble\" to get version"), HasSubstr("error -1728"));
  EXPECT_THAT(result("display nothing"), HasSubstr("error -2741"));
}

TEST_F(ScriptHostTest, ATerminalRunsTheCommandInANewWindow) {
  (void)fakes.addProgram("xdg-terminal-exec");
  const std::string path = std::getenv("PATH");
  ::setenv("PATH", (fakes.programs().string() + ":" + path).c_str(), 1);
  EXPECT_EQ(result("tell application \"terminal\" to do script \"cd '/a b'\" in window 1"),
            "missing value");
  const FakeStart start = fakes.awaitStart("xdg-terminal-exec");
  ::setenv("PATH", path.c_str(), 1);
  ASSERT_EQ(start.arguments.size(), 3U);
  EXPECT_THAT(start.arguments[2], HasSubstr("cd '/a b'\nexec"));
}

TEST_F(ScriptHostTest, WithoutAPreferenceProgramTheFileIsNamed) {
  EXPECT_EQ(result("tell application \"System Preferences\"\nactivate\nreveal pane \"Tavrel\"\n "
                   "end tell"),
            "missing value");
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_THAT(log.lines[0], HasSubstr("qorvane.tavrel.pref.plist"));
}

TEST_F(ScriptHostTest, APaneThatIsNotThereIsAnErrorWithANumber) {
  EXPECT_THAT(result("tell application \"System Preferences\" to reveal pane \"Sound\""),
              HasSubstr("error -1728"));
  EXPECT_THAT(log.lines, ::testing::IsEmpty());
}

TEST_F(ScriptHostTest, OneFileThatIsNotThereKeepsAllFromBeingOpened) {
  write("a", "");
  for (const char* command : {"reveal", "open"})
    EXPECT_THAT(result("tell application \"Finder\" to " + std::string(command) + " {POSIX file " +
                       quoted("a") + ", POSIX file " + quoted("none") + "}"),
                HasSubstr("error -43"));
}

TEST_F(ScriptHostTest, ATerminalIsNeverGivenPartOfACommand) {
  EXPECT_THAT(result("tell application \"terminal\" to do script \"a\" & character id 0 & \"b\""),
              HasSubstr("error -"));
}

TEST_F(ScriptHostTest, BeepsAndLogLinesAreForTheUser) {
  (void)result("beep\nlog \"seen\"");
  EXPECT_EQ(sounds.beeps, 1);
  EXPECT_THAT(log.lines, ElementsAre("seen"));
}

TEST_F(ScriptHostTest, TheClipboardKeepsText) {
  EXPECT_EQ(result("set the clipboard to \"kept\"\nthe clipboard"), "\"kept\"");
  EXPECT_EQ(result("set the clipboard to \"\"\nthe clipboard"), "\"\"");
}

TEST_F(ScriptHostTest, PathsOfPlacesAreKnown) {
  EXPECT_EQ(result("POSIX path of (path to home folder)"),
            "\"" + std::string(std::getenv("HOME")) + "/\"");
  EXPECT_THAT(result("path to library folder"), HasSubstr("error -43"));
}

} // namespace
} // namespace tavrel
