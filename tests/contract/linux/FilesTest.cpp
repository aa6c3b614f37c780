#include "contract/FilesContract.h"

#include "platform/linux/LinuxFiles.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

class LinuxWorld {
public:
  Files& files() { return files_; }
  std::string root() const { return root_; }
  std::string home() const { return std::getenv("HOME"); }

  void addFile(const std::string& path) { write(path, "text"); }
  void addFolder(const std::string& path) { fs::create_directories(path); }
  void addPackage(const std::string& path) { addFolder(path); }
  void addApplication(const std::string& path) { addFolder(path); }
  void addScript(const std::string& path) { addFile(path); }
  void addSymlink(const std::string& path, const std::string& target) {
    fs::create_symlink(target, path);
  }
  void addAlias(const std::string& path, const std::string& target) {
    write(path,
          "[Desktop Entry]\nType=Link\nName=x\nURL=" + fileUrlOfPath(target, PathIs::file) + "\n");
  }
  void write(const std::string& path, const std::string& content) {
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << content;
  }
  void remove(const std::string& path) { fs::remove_all(path); }
  void move(const std::string& from, const std::string& to) { fs::rename(from, to); }

private:
  QTemporaryDir folder_;
  std::string root_ = QFileInfo(folder_.path()).canonicalFilePath().toStdString();
  LinuxFiles files_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, FilesContract, LinuxWorld);

class LinuxFilesTest : public FilesContract<LinuxWorld> {
protected:
  std::string write(const std::string& name, const std::string& content) {
    world.write(at(name), content);
    return at(name);
  }
  std::string writeExecutable(const std::string& name, const std::string& content) {
    const std::string path = write(name, content);
    fs::permissions(path, fs::perms::owner_all);
    return path;
  }
  std::string writeEntry(const std::string& name, const std::string& lines) {
    return write(name, "[Desktop Entry]\n" + lines);
  }
};

// A position-independent program as the kernel sees its start.
const std::string program("\x7F"
                          "ELF\2\1\1\0\0\0\0\0\0\0\0\0\3\0",
                          18);

TEST_F(LinuxFilesTest, ProgramsAreApplicationsAndPlainFiles) {
  constexpr std::uint32_t application = itemFlag::plainFile | itemFlag::nativeApplication;
  writeExecutable("tool", program);
  write("Tool.AppImage", "");
  writeEntry("tool.desktop", "Type=Application\nExec=tool\n");
  EXPECT_EQ(flags("tool"), application);
  EXPECT_EQ(flags("Tool.AppImage"), application);
  EXPECT_EQ(flags("tool.desktop"), application);
  EXPECT_EQ(files().kind(at("tool.desktop")), FileKind::plain);
}

TEST_F(LinuxFilesTest, AProgramOfTheOtherByteOrderIsOneToo) {
  std::string other = program;
  other[5] = 2;
  std::swap(other[16], other[17]);
  writeExecutable("tool", other);
  EXPECT_EQ(flags("tool"), itemFlag::plainFile | itemFlag::nativeApplication);
}

TEST_F(LinuxFilesTest, WhatCannotRunIsAPlainFile) {
  std::string objectFile = program;
  objectFile[16] = 1;
  write("without the bit", program);
  writeExecutable("object", objectFile);
  writeExecutable("library.so.1", program);
  writeExecutable("cut", program.substr(0, 10));
  writeExecutable("empty", "");
  writeExecutable("text", "some text that is no script");
  writeEntry("broken.desktop", "Name=no type\n");
  write("nonsense.desktop", "\xFF\xFE garbage");
  for (const char* name : {"without the bit", "object", "library.so.1", "cut", "empty", "text",
                           "broken.desktop", "nonsense.desktop"})
    EXPECT_EQ(flags(name), itemFlag::plainFile) << name;
}

TEST_F(LinuxFilesTest, TextWithAnInterpreterAndTheExecutableBitIsAScript) {
  writeExecutable("run", "#!/bin/sh\n");
  write("not run", "#!/bin/sh\n");
  write("old.scpt", "x");
  EXPECT_EQ(typeCode("run"), scriptTypeCode);
  EXPECT_EQ(flags("run"), itemFlag::plainFile);
  EXPECT_EQ(typeCode("not run"), 0U);
  EXPECT_EQ(typeCode("old.scpt"), 0U);
}

TEST_F(LinuxFilesTest, AFolderWithAnAppRunOrTheEndingOfOneIsAnApplication) {
  constexpr std::uint32_t bundle =
      itemFlag::container | itemFlag::package | itemFlag::nativeApplication;
  write("unpacked/AppRun", "#!/bin/sh\n");
  world.addFolder(at("Tool.AppDir"));
  world.addFolder(at("LOUD.APP"));
  world.addFile(at("file.app"));
  EXPECT_EQ(flags("unpacked"), bundle);
  EXPECT_EQ(flags("Tool.AppDir"), bundle);
  EXPECT_EQ(flags("LOUD.APP"), bundle);
  EXPECT_EQ(files().kind(at("unpacked")), FileKind::package);
  EXPECT_EQ(flags("file.app"), itemFlag::plainFile);
}

TEST_F(LinuxFilesTest, ApplicationFoldersShowWithoutTheirEnding) {
  world.addFolder(at("Path Tool.app"));
  world.addFile(at("file.app"));
  EXPECT_EQ(files().displayName(at("Path Tool.app")), "Path Tool");
  EXPECT_EQ(files().displayName(at("file.app")), "file.app");
}

TEST_F(LinuxFilesTest, EntriesShowTheirNameInThePersonsLanguage) {
  writeEntry("x.desktop", "Type=Application\nName=Editor\nName[de]=Textbearbeitung\n");
  writeEntry("nameless.desktop", "Type=Application\n");
  EXPECT_EQ(files().displayName(at("x.desktop")), "Editor");
  const std::string before = std::getenv("LC_ALL");
  setenv("LC_ALL", "de_AT.UTF-8", 1);
  EXPECT_EQ(files().displayName(at("x.desktop")), "Textbearbeitung");
  setenv("LC_ALL", before.c_str(), 1);
  EXPECT_EQ(files().displayName(at("nameless.desktop")), "nameless.desktop");
}

TEST_F(LinuxFilesTest, TheUrlOfAnAliasIsDecoded) {
  world.addFile(at("a b#%"));
  writeEntry("a.desktop", "Type=Link\nURL=file://localhost" + at("a%20b%23%25") + "\n");
  writeEntry("b.desktop", "Type=Link\nURL=file:" + at("a b#%") + "\n");
  EXPECT_EQ(files().resolveAlias(at("a.desktop")), at("a b#%"));
  EXPECT_EQ(files().resolveAlias(at("b.desktop")), at("a b#%"));
}

TEST_F(LinuxFilesTest, ALinkEntryToSomewhereElseIsAPlainFileWithoutTarget) {
  int number = 0;
  for (const char* url : {"http://example.com/", "file://elsewhere/etc", "file:", "",
                          "file:///a%00b", "relative/path", "%2Fetc"}) {
    const std::string name = std::to_string(++number) + ".desktop";
    writeEntry(name, "Type=Link\nURL=" + std::string(url) + "\n");
    EXPECT_FALSE(files().resolveAlias(at(name))) << url;
    EXPECT_TRUE(flags(name) & itemFlag::plainFile) << url;
  }
}

TEST_F(LinuxFilesTest, AnApplicationEntryIsTheEndOfAnAliasChain) {
  writeEntry("tool.desktop", "Type=Application\nExec=tool\n");
  world.addAlias(at("a.desktop"), at("tool.desktop"));
  EXPECT_EQ(files().resolveAlias(at("a.desktop")), at("tool.desktop"));
}

TEST_F(LinuxFilesTest, DotNamesBackupsAndNamesTheFolderHidesAreInvisible) {
  write(".hidden", "secret\nwith blank \n\nfolder\n");
  for (const char* name : {".dot", "a~", "secret", "with blank ", "plain", "Secret"})
    world.addFile(at(name));
  world.addFolder(at("folder"));
  for (const char* name : {".dot", "a~", "secret", "with blank ", "folder"})
    EXPECT_TRUE(flags(name, FinalLink::keep) & itemFlag::invisible) << name;
  for (const char* name : {"plain", "Secret"})
    EXPECT_FALSE(flags(name, FinalLink::keep) & itemFlag::invisible) << name;
}

TEST_F(LinuxFilesTest, NamesOfAnyBytesTravel) {
  const std::string longest(255, 'n');
  for (const std::string& name : {std::string("line\nfeed"), std::string("\xE9t\xE9"), longest,
                                  std::string(" "), std::string("-rf"), std::string("\\")}) {
    world.addFile(at(name));
    EXPECT_TRUE(files().exists(at(name))) << name;
    EXPECT_EQ(flags(name), itemFlag::plainFile) << name;
    EXPECT_EQ(files().displayName(at(name)), name);
    EXPECT_EQ(files().resolveSymlinks(at(name)), at(name));
  }
  EXPECT_THAT(files().list(world.root()), SizeIs(6));
  EXPECT_FALSE(files().exists(at(longest + 'n')));
}

TEST_F(LinuxFilesTest, APathWithAZeroByteIsNoPath) {
  world.addFile(at("a"));
  const std::string path = at("a") + std::string("\0b", 2);
  EXPECT_FALSE(files().exists(path));
  EXPECT_FALSE(files().bookmark(path));
  EXPECT_EQ(files().resolveSymlinks(path), path);
}

TEST_F(LinuxFilesTest, ATooLongPathIsNotThere) {
  const std::string path = "/" + std::string(100'000, 'a');
  EXPECT_FALSE(files().exists(path));
  EXPECT_EQ(files().resolveSymlinks(path), path);
  EXPECT_FALSE(files().information(path, FinalLink::follow));
}

/// Counts how often files in a folder are opened.
class OpenCounter {
public:
  explicit OpenCounter(const std::string& folder) {
    inotify_add_watch(watch_, folder.c_str(), IN_OPEN);
  }
  ~OpenCounter() { close(watch_); }
  int count() {
    alignas(inotify_event) char events[4096];
    int opened = 0;
    for (ssize_t got; (got = read(watch_, events, sizeof events)) > 0;)
      for (const char* at = events; at < events + got;) {
        const auto* event = reinterpret_cast<const inotify_event*>(at);
        opened += event->len > 0 ? 1 : 0; // no name: the folder itself
        at += sizeof(inotify_event) + event->len;
      }
    return opened;
  }

private:
  int watch_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
};

TEST_F(LinuxFilesTest, PipesAndSocketsAreNeverOpened) {
  for (const char* name : {"pipe", "pipe.desktop", "pipe.applescript"})
    ASSERT_EQ(mkfifo(at(name).c_str(), 0777), 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  at("socket").copy(address.sun_path, sizeof address.sun_path - 1);
  const int socketFile = socket(AF_UNIX, SOCK_STREAM, 0);
  ASSERT_EQ(bind(socketFile, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  OpenCounter opened(world.root());
  for (const char* name : {"pipe", "pipe.desktop", "pipe.applescript", "socket"}) {
    EXPECT_EQ(flags(name), itemFlag::plainFile) << name;
    EXPECT_EQ(typeCode(name), 0U) << name;
    EXPECT_EQ(files().kind(at(name)), FileKind::plain);
    EXPECT_FALSE(files().resolveAlias(at(name)));
    EXPECT_EQ(files().displayName(at(name)), name);
  }
  EXPECT_EQ(opened.count(), 0);
  close(socketFile);
}

TEST_F(LinuxFilesTest, FilesWhoseNameAndModeDecideAreNotOpened) {
  world.addFile(at("a.txt"));
  world.addScript(at("b.applescript"));
  write("c.AppImage", program);
  writeExecutable("d.so", program);
  OpenCounter opened(world.root());
  for (const char* name : {"a.txt", "b.applescript", "c.AppImage", "d.so"}) {
    EXPECT_NE(flags(name), 0xFFFFFFFF);
    EXPECT_EQ(files().kind(at(name)), FileKind::plain);
  }
  EXPECT_EQ(opened.count(), 0);
}

TEST_F(LinuxFilesTest, ADeviceIsAPlainFile) {
  EXPECT_EQ(files().information("/dev/zero", FinalLink::follow)->flags, itemFlag::plainFile);
}

TEST_F(LinuxFilesTest, AnEntryOfAHundredMegabytesIsAPlainFile) {
  writeEntry("big.desktop", "Type=Application\nName=Big\n");
  fs::resize_file(at("big.desktop"), 100 << 20);
  EXPECT_EQ(flags("big.desktop"), itemFlag::plainFile);
  EXPECT_EQ(files().displayName(at("big.desktop")), "big.desktop");
  EXPECT_FALSE(files().resolveAlias(at("big.desktop")));
}

/// Runs as another person, so that permissions count even where the tests run as root.
template <class Question> bool asNobody(Question question) {
  const pid_t child = fork();
  if (child == 0) {
    const bool changed = getuid() != 0 || (setgid(65534) == 0 && setuid(65534) == 0);
    _exit(changed && question() ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST_F(LinuxFilesTest, AFolderThatMayNotBeReadIsEmptyAndItsFilesAreNotThere) {
  world.addFile(at("locked/file"));
  fs::permissions(at("locked"), fs::perms::none);
  EXPECT_TRUE(asNobody([&] {
    return files().list(at("locked")).empty() && !files().exists(at("locked/file")) &&
           !files().information(at("locked/file"), FinalLink::follow) &&
           files().resolveSymlinks(at("locked/file")) == at("locked/file");
  }));
  fs::permissions(at("locked"), fs::perms::owner_all);
}

TEST_F(LinuxFilesTest, ABookmarkFollowsAFileIntoAFolderOfThePerson) {
  world.addFile(at("far/away/file"));
  const std::string documents = world.home() + "/Documents/deep";
  world.addFolder(documents);
  const auto bookmark = files().bookmark(at("far/away/file"));
  ASSERT_TRUE(bookmark);
  world.move(at("far/away/file"), documents + "/file");
  EXPECT_EQ(bookmarked(*bookmark), documents + "/file");
  world.remove(documents);
}

TEST_F(LinuxFilesTest, AFileThatWasSavedAnewAtItsPlaceIsFoundThere) {
  world.addFile(at("file"));
  const auto bookmark = files().bookmark(at("file"));
  ASSERT_TRUE(bookmark);
  world.addFile(at("new")); // exists beside the old one, so that it is another file
  world.move(at("new"), at("file"));
  EXPECT_EQ(bookmarked(*bookmark), at("file"));
}

TEST_F(LinuxFilesTest, ABookmarkOfAnAncestorThatIsGoneIsLookedForInWhatIsLeft) {
  world.addFile(at("a/b/c/file"));
  const auto bookmark = files().bookmark(at("a/b/c/file"));
  ASSERT_TRUE(bookmark);
  world.move(at("a/b/c/file"), at("file"));
  world.remove(at("a"));
  EXPECT_EQ(bookmarked(*bookmark), at("file"));
}

TEST_F(LinuxFilesTest, DamagedBookmarksLeadNowhere) {
  world.addFile(at("file"));
  const Bytes whole = files().bookmark(at("file")).value();
  for (std::size_t length = 0; length < whole.size() - at("file").size(); ++length)
    EXPECT_FALSE(bookmarked(Bytes(whole.begin(), whole.begin() + static_cast<long>(length))));
}

TEST_F(LinuxFilesTest, TheHomeFolderHasNoTrailingSlash) {
  const std::string before = std::getenv("HOME");
  setenv("HOME", "/srv/me//", 1);
  EXPECT_EQ(files().homeDirectory(), "/srv/me");
  setenv("HOME", "", 1);
  EXPECT_TRUE(files().homeDirectory().starts_with('/')); // as the user database has it
  setenv("HOME", before.c_str(), 1);
}

} // namespace
} // namespace tavrel
