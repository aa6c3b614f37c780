#include "WorkspaceContract.h"

#include "FakeApplications.h"
#include "platform/linux/applications/LinuxWorkspace.h"
#include "platform/linux/x11/windows/DesktopWindows.h"
#include "support/DeadFileSystem.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QThread>
#include <gmock/gmock.h>
#include <mutex>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class LinuxWorld {
public:
  Workspace& workspace() { return workspace_; }
  std::string document() {
    fakes.add("editor", "MimeType=text/plain;\n");
    write(scratch.path() / "a document.txt", "text");
    return (scratch.path() / "a document.txt").string();
  }
  std::string orphan() {
    write(scratch.path() / "orphan.txt", "text");
    return (scratch.path() / "orphan.txt").string();
  }
  std::string missing() { return (scratch.path() / "missing.txt").string(); }
  std::string url() {
    fakes.add("editor", "MimeType=x-scheme-handler/tavreltest;\n");
    return "tavreltest:thing%20here?q=$(x)";
  }
  std::string orphanUrl() { return "unknown:thing"; }
  std::string application() { return fakes.add("editor"); }
  std::string brokenApplication() {
    return fakes.addEntry("broken", "Exec=/nonexistent/program %U\n");
  }
  std::string missingApplication() { return (fakes.data() / "missing.desktop").string(); }
  bool wasHanded(const std::vector<std::string>& urls) {
    return fakes.awaitStart("editor").arguments == urls && fakes.starts("editor").size() == 1;
  }

  FakeApplications fakes;
  ScratchFolder scratch;

private:
  DesktopWindows windows_;
  ApplicationRegistry registry_{fakes.folders()};
  LinuxWorkspace workspace_{registry_, windows_};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, WorkspaceContract, LinuxWorld);

class LinuxWorkspaceTest : public ::testing::Test {
protected:
  std::string file(const std::string& name, const std::string& text = "text") {
    write(world.scratch.path() / name, text);
    return (world.scratch.path() / name).string();
  }
  std::string folder(const std::string& name) {
    fs::create_directories(world.scratch.path() / name);
    return (world.scratch.path() / name).string();
  }
  std::int32_t openWith(const std::string& application, const std::vector<std::string>& urls) {
    return workspace.openUrlsWithApplication({fileUrlOfPath(application, PathIs::file), urls});
  }

  LinuxWorld world;
  FakeApplications& fakes = world.fakes;
  Workspace& workspace = world.workspace();
};

TEST_F(LinuxWorkspaceTest, AFileOnAMountThatDoesNotAnswerIsRefusedAfterABoundedWait) {
  const std::string mount = folder("share");
  const DeadFileSystem dead(mount);
  if (!dead.isMounted())
    GTEST_SKIP() << "no rights to mount a file system here";
  const auto start = std::chrono::steady_clock::now();
  ::testing::internal::CaptureStderr();
  EXPECT_FALSE(world.workspace().openFile(mount + "/letter.txt"));
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("timed out"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
}

TEST_F(LinuxWorkspaceTest, AFolderGoesToTheFileManager) {
  fakes.add("manager", "MimeType=inode/directory;\n", "%f");
  const std::string path = folder("some folder");
  EXPECT_TRUE(workspace.openFile(path));
  EXPECT_THAT(fakes.awaitStart("manager").arguments, ElementsAre(path));
}

TEST_F(LinuxWorkspaceTest, TheUsersChoiceOpensTheFile) {
  fakes.add("a", "MimeType=text/plain;\n");
  fakes.add("b", "MimeType=text/plain;\n");
  write(fakes.config() / "mimeapps.list", "[Default Applications]\ntext/plain=b.desktop\n");
  EXPECT_TRUE(workspace.openFile(file("x.txt")));
  EXPECT_THAT(fakes.awaitStart("b").arguments, Not(IsEmpty()));
  EXPECT_THAT(fakes.starts("a"), IsEmpty());
}

TEST_F(LinuxWorkspaceTest, AKindOfTextGoesToATextEditorWhenNothingKnowsItBetter) {
  fakes.add("editor", "MimeType=text/plain;\n");
  EXPECT_TRUE(workspace.openFile(file("x.py", "print()")));
  EXPECT_THAT(fakes.awaitStart("editor").arguments, Not(IsEmpty()));
}

TEST_F(LinuxWorkspaceTest, ADefaultThatIsNotInstalledIsPassedOver) {
  fakes.add("a", "MimeType=text/plain;\nTryExec=no-such-program\n");
  fakes.add("b", "MimeType=text/plain;\n");
  EXPECT_TRUE(workspace.openFile(file("x.txt")));
  EXPECT_THAT(fakes.awaitStart("b").arguments, Not(IsEmpty()));
  EXPECT_THAT(fakes.starts("a"), IsEmpty());
}

TEST_F(LinuxWorkspaceTest, OpeningAnEntryStartsItsApplication) {
  EXPECT_TRUE(workspace.openFile(fakes.add("editor")));
  EXPECT_THAT(fakes.awaitStart("editor").arguments, IsEmpty());
}

TEST_F(LinuxWorkspaceTest, OpeningALinkOpensWhereItLeads) {
  fakes.add("editor", "MimeType=text/plain;x-scheme-handler/tavreltest;\n", "%u");
  const std::string target = file("target.txt");
  EXPECT_TRUE(workspace.openFile(
      file("a.desktop", "[Desktop Entry]\nType=Link\nURL=file://" + target + "\n")));
  EXPECT_TRUE(
      workspace.openFile(file("b.desktop", "[Desktop Entry]\nType=Link\nURL=tavreltest:x\n")));
  EXPECT_THAT(fakes.awaitArguments("editor", 2),
              ElementsAre(ElementsAre("file://" + target), ElementsAre("tavreltest:x")));
}

TEST_F(LinuxWorkspaceTest, ALinkToItselfIsRefused) {
  const std::string path = file("a.desktop");
  write(path, "[Desktop Entry]\nType=Link\nURL=file://" + path + "\n");
  EXPECT_FALSE(workspace.openFile(path));
}

TEST_F(LinuxWorkspaceTest, AFileUrlIsOpenedAsTheFile) {
  fakes.add("editor", "MimeType=text/plain;\n", "%f");
  const std::string path = file("caf\xC3\xA9 #1.txt");
  EXPECT_TRUE(workspace.openUrl(fileUrlOfPath(path, PathIs::file)));
  EXPECT_THAT(fakes.awaitStart("editor").arguments, ElementsAre(path));
}

TEST_F(LinuxWorkspaceTest, NoShellEverSeesAName) {
  fakes.add("editor", "MimeType=text/plain;\n", "%f");
  const std::string path = file("$(touch pwned);`touch pwned`'\"\n&.txt");
  EXPECT_TRUE(workspace.openFile(path));
  EXPECT_THAT(fakes.awaitStart("editor").arguments, ElementsAre(path));
}

TEST_F(LinuxWorkspaceTest, ANameThatIsNoTextIsHandedOverByteForByte) {
  fakes.add("editor", {}, "%F");
  const std::string path = file("caf\xE9.txt");
  EXPECT_EQ(openWith((fakes.data() / "applications/editor.desktop").string(),
                     {fileUrlOfPath(path, PathIs::file)}),
            0);
  EXPECT_THAT(fakes.awaitStart("editor").arguments, ElementsAre(path));
}

TEST_F(LinuxWorkspaceTest, AnApplicationOfOneDocumentIsStartedForEach) {
  const std::string editor = fakes.add("editor", {}, "%f");
  EXPECT_EQ(openWith(editor, {"file:///a", "file:///b"}), 0);
  EXPECT_THAT(fakes.awaitArguments("editor", 2), ElementsAre(ElementsAre("/a"), ElementsAre("/b")));
}

TEST_F(LinuxWorkspaceTest, ABareProgramTakesPaths) {
  EXPECT_EQ(openWith(fakes.addProgram("program"), {"file:///a%20b", "http://c/"}), 0);
  EXPECT_THAT(fakes.awaitStart("program").arguments, ElementsAre("/a b", "http://c/"));
}

TEST_F(LinuxWorkspaceTest, AnApplicationFolderIsStartedByItsProgram) {
  const std::string path = folder("Some.AppDir");
  fs::copy_file(fakes.addProgram("run"), path + "/AppRun");
  EXPECT_TRUE(workspace.openFile(path));
  EXPECT_EQ(openWith(path, {"file:///a"}), 0);
  EXPECT_THAT(fakes.awaitArguments("run", 2), ElementsAre(IsEmpty(), ElementsAre("/a")));
}

TEST_F(LinuxWorkspaceTest, ACompiledProgramIsStarted) {
  const std::string path = (world.scratch.path() / "program").string();
  fs::copy_file("/bin/true", path);
  EXPECT_TRUE(workspace.openFile(path));
  ::chmod(path.c_str(), 0644);
  EXPECT_FALSE(workspace.openFile(path));
}

TEST_F(LinuxWorkspaceTest, WhatIsNoApplicationIsToldApart) {
  const std::string link = file("l.desktop", "[Desktop Entry]\nType=Link\nURL=http://x/\n");
  for (const std::string& path : {file("plain.txt"), folder("plain"), link, file("junk.desktop")})
    EXPECT_EQ(openWith(path, {"file:///a"}), -10814) << path;
  EXPECT_EQ(workspace.openUrlsWithApplication({"http://x/editor", {}}), -10814);
  EXPECT_EQ(workspace.openUrlsWithApplication({"", {}}), -10814);
}

TEST_F(LinuxWorkspaceTest, AnUnreadableCommandLineCannotBeStarted) {
  for (const char* exec : {"Exec=\"open\n", "Exec=\n", "", "Exec=%f\n", "Exec=relative/path\n"})
    EXPECT_EQ(openWith(fakes.addEntry("odd", exec), {}), -10827) << exec;
}

TEST_F(LinuxWorkspaceTest, AnApplicationStartsInItsFolder) {
  const std::string here = folder("here");
  EXPECT_TRUE(workspace.openFile(fakes.add("editor", "Path=" + here + "\n")));
  EXPECT_EQ(fakes.awaitStart("editor").folder, here);
}

TEST_F(LinuxWorkspaceTest, ATerminalApplicationRunsInTheTerminal) {
  const std::string terminal = fakes.addProgram("xdg-terminal-exec");
  const std::string path = ::getenv("PATH");
  ::setenv("PATH", (fakes.programs().string() + ":" + path).c_str(), 1);
  const std::string editor = fakes.add("editor", "Terminal=true\n", "--flag %f");
  EXPECT_EQ(openWith(editor, {"file:///a%20b"}), 0);
  ::setenv("PATH", path.c_str(), 1);
  EXPECT_THAT(fakes.awaitStart("xdg-terminal-exec").arguments,
              ElementsAre((fakes.programs() / "editor").string(), "--flag", "/a b"));
}

TEST_F(LinuxWorkspaceTest, WithoutATerminalATerminalApplicationIsRefused) {
  const std::string path = ::getenv("PATH");
  const std::string editor = fakes.add("editor", "Terminal=true\n");
  ::setenv("PATH", "/nonexistent", 1);
  EXPECT_FALSE(workspace.openFile(editor));
  ::setenv("PATH", path.c_str(), 1);
}

TEST_F(LinuxWorkspaceTest, AnApplicationIsToldOfItsStartUp) {
  EXPECT_TRUE(workspace.openFile(fakes.add("editor", "StartupNotify=true\n")));
  const std::string environment = fakes.awaitStart("editor").environment;
  EXPECT_THAT(environment, HasSubstr("DESKTOP_STARTUP_ID=tavrel-"));
  EXPECT_THAT(environment, HasSubstr("XDG_ACTIVATION_TOKEN=tavrel-"));
  EXPECT_THAT(environment, HasSubstr("_TIME"));
}

TEST_F(LinuxWorkspaceTest, TheRolesOfFileManagersArePlayed) {
  fakes.add("first", "MimeType=inode/directory;\n");
  fakes.add("second", "MimeType=inode/directory;\nCategories=FileManager;\n");
  fakes.add("third", "MimeType=inode/directory;\nCategories=FileManager;\n");
  const auto role = [&](const std::string& name) {
    return file(name + ".desktop", "[Desktop Entry]\nType=Application\nName=" + name +
                                       "\nExec=false\nX-Tavrel-Role=" + name + "\n");
  };
  EXPECT_TRUE(workspace.openFile(role("Finder")));
  EXPECT_THAT(fakes.awaitStart("first").arguments, IsEmpty());
  EXPECT_EQ(openWith(role("Path Finder"), {"file:///a"}), 0);
  EXPECT_THAT(fakes.awaitStart("second").arguments, ElementsAre("file:///a"));
}

TEST_F(LinuxWorkspaceTest, ARoleThatNobodyPlaysCannotBeOpened) {
  EXPECT_FALSE(workspace.openFile(
      file("r.desktop", "[Desktop Entry]\nType=Application\nX-Tavrel-Role=Finder\nExec=true\n")));
}

TEST_F(LinuxWorkspaceTest, FilesAreMovedAndARefusalIsFalse) {
  const std::string from = folder("from");
  const std::string to = folder("to");
  write(from + "/name", "text");
  EXPECT_TRUE(workspace.performFileOperation(FileOperation::copy, from, to, {"name"}));
  EXPECT_FALSE(workspace.performFileOperation(FileOperation::move, from, to, {"name"}));
  EXPECT_EQ(read(to + "/name"), "text");
  EXPECT_EQ(read(from + "/name"), "text");
}

TEST_F(LinuxWorkspaceTest, APipeIsRefusedWithoutBeingOpened) {
  const std::string path = (world.scratch.path() / "pipe").string();
  ::mkfifo(path.c_str(), 0600);
  EXPECT_FALSE(workspace.openFile(path));
}

TEST_F(LinuxWorkspaceTest, TheSystemVersionIsTheNewestWhoseBehaviourIsOffered) {
  EXPECT_EQ(workspace.systemVersion(), 0x1068);
}

/// An application on the session bus, in a thread of its own.
class BusApplication final : public QDBusVirtualObject {
public:
  enum class Manner { answers, refuses };
  explicit BusApplication(Manner manner) : manner_(manner) {
    thread_.start();
    moveToThread(&thread_);
    bus_.registerVirtualObject(QStringLiteral("/org/tavrel/test_editor/Fake"), this);
    bus_.registerService(QStringLiteral("org.tavrel.test-editor.Fake"));
  }
  ~BusApplication() override {
    thread_.quit();
    thread_.wait();
    QDBusConnection::disconnectFromBus(QStringLiteral("fake application"));
  }

  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    const std::scoped_lock lock(mutex_);
    calls_.push_back(message.interface().toStdString() + "." + message.member().toStdString());
    for (const QString& url : message.arguments().value(0).toStringList())
      calls_.push_back(url.toStdString());
    return bus.send(manner_ == Manner::answers
                        ? message.createReply()
                        : message.createErrorReply(QDBusError::UnknownMethod, QString()));
  }
  QString introspect(const QString&) const override { return {}; }

  std::vector<std::string> calls() {
    const std::scoped_lock lock(mutex_);
    return calls_;
  }

private:
  Manner manner_;
  QThread thread_;
  std::mutex mutex_;
  std::vector<std::string> calls_;
  QDBusConnection bus_ = QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                                       QStringLiteral("fake application"));
};

TEST_F(LinuxWorkspaceTest, AnApplicationOnTheBusIsAskedThere) {
  BusApplication application(BusApplication::Manner::answers);
  const std::string entry = fakes.add("org.tavrel.test-editor.Fake", "DBusActivatable=true\n");
  EXPECT_TRUE(workspace.openFile(entry));
  EXPECT_EQ(openWith(entry, {"file:///a", "http://b/"}), 0);
  EXPECT_THAT(application.calls(),
              ElementsAre("org.freedesktop.Application.Activate",
                          "org.freedesktop.Application.Open", "file:///a", "http://b/"));
  EXPECT_THAT(fakes.starts("org.tavrel.test-editor.Fake"), IsEmpty());
}

TEST_F(LinuxWorkspaceTest, WhenTheBusDoesNotKnowTheApplicationItsProgramIsStarted) {
  const std::string entry = fakes.add("org.tavrel.Unknown", "DBusActivatable=true\n");
  EXPECT_EQ(openWith(entry, {"file:///a"}), 0);
  EXPECT_THAT(fakes.awaitArguments("org.tavrel.Unknown", 1), ElementsAre(ElementsAre("file:///a")));
}

TEST_F(LinuxWorkspaceTest, WhenTheApplicationRefusesOnTheBusItsProgramIsStarted) {
  BusApplication application(BusApplication::Manner::refuses);
  const std::string entry = fakes.add("org.tavrel.test-editor.Fake", "DBusActivatable=true\n");
  EXPECT_EQ(openWith(entry, {"file:///a"}), 0);
  EXPECT_THAT(fakes.awaitArguments("org.tavrel.test-editor.Fake", 1),
              ElementsAre(ElementsAre("file:///a")));
}

} // namespace
} // namespace tavrel
