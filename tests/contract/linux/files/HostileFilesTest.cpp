#include "contract/linux/files/LinuxFilesFixture.h"

#include <sys/inotify.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavrel {

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(FilesContract); // it runs in FilesTest

namespace {

namespace fs = std::filesystem;
using ::testing::SizeIs;

class HostileFiles : public LinuxFilesTest {};

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

/// Runs as another user, so that permissions count even where the tests run as root.
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

TEST_F(HostileFiles, NamesOfAnyBytesTravel) {
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

TEST_F(HostileFiles, APathWithAZeroByteIsNoPath) {
  world.addFile(at("a"));
  const std::string path = at("a") + std::string("\0b", 2);
  EXPECT_FALSE(files().exists(path));
  EXPECT_FALSE(files().bookmark(path));
  EXPECT_EQ(files().resolveSymlinks(path), path);
  EXPECT_THAT(files().list(world.root() + std::string("\0x", 2)), SizeIs(0));
  write("b", "[Desktop Entry]\nName=no\n");
  EXPECT_NE(files().displayName(at("b") + std::string("\0.desktop", 9)), "no");
}

TEST_F(HostileFiles, ATooLongPathIsNotThere) {
  const std::string path = "/" + std::string(100'000, 'a');
  EXPECT_FALSE(files().exists(path));
  EXPECT_EQ(files().resolveSymlinks(path), path);
  EXPECT_FALSE(files().information(path, FinalLink::follow));
}

TEST_F(HostileFiles, PipesAndSocketsAreNeverOpened) {
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

TEST_F(HostileFiles, FilesWhoseNameAndModeDecideAreNotOpened) {
  world.addFile(at("a.txt"));
  world.addScript(at("b.applescript"));
  write("c.AppImage", program);
  writeExecutable("d.so", program);
  writeExecutable("undecided", "text");
  OpenCounter opened(world.root());
  for (const char* name : {"a.txt", "b.applescript", "c.AppImage", "d.so"}) {
    EXPECT_NE(flags(name), 0xFFFFFFFF);
    EXPECT_EQ(files().kind(at(name)), FileKind::plain);
  }
  EXPECT_EQ(opened.count(), 0);
  EXPECT_EQ(flags("undecided"), itemFlag::plainFile);
  EXPECT_EQ(opened.count(), 1);
}

TEST_F(HostileFiles, ADeviceIsAPlainFile) {
  EXPECT_EQ(files().information("/dev/zero", FinalLink::follow)->flags, itemFlag::plainFile);
}

TEST_F(HostileFiles, AnEntryOfAHundredMegabytesIsAPlainFile) {
  writeEntry("big.desktop", "Type=Application\nName=Big\n");
  fs::resize_file(at("big.desktop"), 100 << 20);
  EXPECT_EQ(flags("big.desktop"), itemFlag::plainFile);
  EXPECT_EQ(files().displayName(at("big.desktop")), "big.desktop");
  EXPECT_FALSE(files().resolveAlias(at("big.desktop")));
}

/// A folder that everybody may enter, unlike those made for the tests of one user.
class SharedFolder {
public:
  SharedFolder() { fs::permissions(path, fs::perms(0755)); }
  ~SharedFolder() {
    fs::permissions(path + "/locked", fs::perms::owner_all);
    fs::remove_all(path);
  }
  std::string path = [] {
    std::string name = "/tmp/tavrel-shared.XXXXXX";
    return mkdtemp(name.data()) ? name : std::string();
  }();
};

TEST_F(HostileFiles, AFolderThatMayNotBeReadIsEmptyAndItsFilesAreNotThere) {
  const SharedFolder shared;
  const std::string locked = shared.path + "/locked";
  world.addFile(locked + "/file");
  const auto isThere = [&] { return files().exists(locked + "/file"); };
  fs::permissions(locked, fs::perms(0755));
  EXPECT_TRUE(asNobody(isThere));
  fs::permissions(locked, fs::perms::none);
  EXPECT_FALSE(asNobody(isThere));
  EXPECT_TRUE(asNobody([&] {
    return files().list(locked).empty() && files().kind(locked) == FileKind::directory &&
           !files().information(locked + "/file", FinalLink::follow) &&
           files().resolveSymlinks(locked + "/file") == locked + "/file";
  }));
}

TEST_F(HostileFiles, DamagedBookmarksLeadNowhere) {
  world.addFile(at("file"));
  const Bytes whole = files().bookmark(at("file")).value();
  for (std::size_t length = 0; length < whole.size() - at("file").size(); ++length)
    EXPECT_FALSE(bookmarked(Bytes(whole.begin(), whole.begin() + static_cast<long>(length))));
}

} // namespace
} // namespace tavrel
