#include "contract/ScriptsContract.h"

#include "platform/linux/scripts/LinuxScripts.h"
#include "script/RecordingHost.h"
#include "support/ScratchFolders.h"

#include <csignal>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <thread>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

const std::string counterSource = "property n : 0\nset n to n + 1\nreturn n";

void writeText(const fs::path& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

std::string textIn(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class LinuxWorld {
public:
  Scripts& scripts() { return scripts_; }
  std::string counter() { return compiled("counter.scpt", counterSource); }
  std::string silent() { return compiled("silent.scpt", ""); }
  std::string failing() {
    return compiled("failing.scpt", "property n : 0\nset n to n + 1\nerror \"no\"");
  }
  std::string unreadable() { return file("unreadable.scpt", "tell application"); }
  std::string unwritable() { return (folder_.path() / "counter.scpt" / "below").string(); }
  std::string missing() { return (folder_.path() / "missing.scpt").string(); }
  std::string readOnly() {
    const std::string path = counter();
    PropertyList::Dictionary container = *readScriptFile(path).container.dictionary();
    container.erase("source");
    EXPECT_TRUE(writeScriptFile(path, container, PropertyListForm::binary));
    return path;
  }
  std::string listing() {
    return compiled("listing.scpt", "return {\"/docs/a.txt\", \"/größe 😀\"}");
  }
  std::string listingNothing() { return compiled("nothing.scpt", "return {}"); }
  std::string telling() { return compiled("telling.scpt", "return \"words\""); }
  std::string stopping() { return compiled("stopping.scpt", "error \"no\""); }
  std::int64_t countIn(const std::string& path) {
    const ScriptFile file = readScriptFile(path);
    const PropertyList* properties = file.container.find("properties");
    const PropertyList* count = properties ? properties->find("n") : nullptr;
    return count ? count->integer().value_or(-1) : 0;
  }
  std::string goodSource() { return "return 1"; }
  std::string failingSource(int number) { return "error \"no\" number " + std::to_string(number); }
  std::string brokenSource() { return "tell"; }

  std::string file(const std::string& name, const std::string& text) {
    writeText(folder_.path() / name, text);
    return (folder_.path() / name).string();
  }
  std::string compiled(const std::string& name, const std::string& source) {
    script::Engine engine(host_);
    const auto loaded = engine.loadSource(source, script::Author::user);
    const auto container = engine.container(std::get<script::ScriptId>(loaded));
    const std::string path = file(name, "");
    EXPECT_TRUE(writeScriptFile(path, *container, PropertyListForm::binary));
    return path;
  }
  [[nodiscard]] fs::path folder() const { return folder_.path(); }

private:
  ScratchFolder folder_;
  script::RecordingHost host_;
  LongRunningScripts runs_;
  LinuxScripts scripts_{host_, runs_, [](const std::string&) { return osaError::none; }};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, ScriptsContract, LinuxWorld);

class ScriptFileTest : public ::testing::Test {
protected:
  OSAError runAndStore(const std::string& path) {
    Scripts& scripts = world.scripts();
    const LoadedScript loaded = scripts.load(component, path);
    EXPECT_EQ(loaded.code, osaError::none);
    EXPECT_EQ(scripts.execute(component, loaded.script).code, osaError::none);
    return scripts.store(component, loaded.script, path);
  }

  LinuxWorld world;
  ComponentInstance component =
      world.scripts().openDefaultComponent(kOSAComponentType, kAppleScriptSubtype);
};

TEST_F(ScriptFileTest, SourceTextIsCompiledOnLoadAndNeverWrittenOver) {
  for (const char* name : {"plain.applescript", "plain.scpt"}) {
    const LoadedScript loaded = world.scripts().load(component, world.file(name, counterSource));
    EXPECT_EQ(loaded.code, osaError::none);
    EXPECT_FALSE(loaded.storable);
  }
}

TEST_F(ScriptFileTest, StoringKeepsModeFormAndExtendedAttributes) {
  const std::string path = world.counter();
  ASSERT_TRUE(writeScriptFile(path, readScriptFile(path).container, PropertyListForm::xml));
  ::chmod(path.c_str(), 0640);
  const bool hasAttributes = ::setxattr(path.c_str(), "user.note", "kept", 4, 0) == 0;
  EXPECT_EQ(runAndStore(path), osaError::none);
  struct stat status = {};
  ::stat(path.c_str(), &status);
  EXPECT_EQ(status.st_mode & 07777U, 0640U);
  EXPECT_TRUE(textIn(path).starts_with("<?xml"));
  char value[8] = {};
  EXPECT_EQ(::getxattr(path.c_str(), "user.note", value, sizeof value), hasAttributes ? 4 : -1);
}

TEST_F(ScriptFileTest, AFullDiskLeavesTheFileAsItWas) {
  const fs::path disk = world.folder() / "disk";
  const SmallDisk small(disk, "size=16k");
  if (!small.isMounted())
    GTEST_SKIP() << "no small file system can be mounted here";
  const std::string path = (disk / "counter.scpt").string();
  fs::copy_file(world.counter(), path);
  const std::string before = textIn(path);
  writeText(disk / "fill", std::string(64 * 1024, 'x'));
  EXPECT_NE(runAndStore(path), osaError::none);
  EXPECT_EQ(textIn(path), before);
  EXPECT_EQ(std::distance(fs::directory_iterator(disk), fs::directory_iterator()), 2);
}

TEST_F(ScriptFileTest, AScriptMayHaveAnyName) {
  for (const char* name : {"a b.scpt", "a\nb.scpt", "caf\xe9.scpt", "it's \"$(x)\".scpt"}) {
    const std::string path = world.compiled(name, counterSource);
    EXPECT_EQ(runAndStore(path), osaError::none);
    EXPECT_EQ(world.countIn(path), 1);
  }
}

TEST_F(ScriptFileTest, AScriptBehindALinkIsStoredThere) {
  const std::string path = world.counter();
  const fs::path link = world.folder() / "link.scpt";
  fs::create_symlink("counter.scpt", link);
  EXPECT_EQ(runAndStore(link.string()), osaError::none);
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(world.countIn(path), 1);
}

TEST_F(ScriptFileTest, AFolderThatTakesNoFilesLeavesTheScriptAsItWas) {
  const fs::path folder = world.folder() / "closed";
  fs::create_directory(folder);
  const std::string path = (folder / "counter.scpt").string();
  fs::copy_file(world.counter(), path);
  AsPlainPerson::give(path);
  ::chmod(folder.c_str(), 0555);
  const std::string before = textIn(path);
  const AsPlainPerson person;
  EXPECT_NE(runAndStore(path), osaError::none);
  EXPECT_EQ(textIn(path), before);
}

TEST_F(ScriptFileTest, AScriptThatMayOnlyBeReadIsNotStorable) {
  const std::string path = world.counter();
  ::chmod(path.c_str(), 0444);
  const AsPlainPerson person;
  const LoadedScript loaded = world.scripts().load(component, path);
  EXPECT_EQ(loaded.code, osaError::none);
  EXPECT_FALSE(loaded.storable);
}

TEST_F(ScriptFileTest, AScriptThatWasEditedWhileItRanIsNotStoredOverTheEdit) {
  Scripts& scripts = world.scripts();
  const std::string path = world.counter();
  const OSAID script = scripts.load(component, path).script;
  EXPECT_EQ(scripts.execute(component, script).code, osaError::none);
  world.compiled("counter.scpt", "property n : 100");
  const std::string edited = textIn(path);
  EXPECT_NE(scripts.store(component, script, path), osaError::none);
  EXPECT_EQ(textIn(path), edited);
}

TEST_F(ScriptFileTest, AScriptThatRanInsideItselfIsStoredByBoth) {
  Scripts& scripts = world.scripts();
  const std::string path = world.counter();
  const OSAID outer = scripts.load(component, path).script;
  EXPECT_EQ(scripts.execute(component, outer).code, osaError::none);
  EXPECT_EQ(scripts.execute(component, outer).code, osaError::none);
  EXPECT_EQ(runAndStore(path), osaError::none);
  EXPECT_EQ(scripts.store(component, outer, path), osaError::none);
  EXPECT_EQ(world.countIn(path), 2);
}

TEST_F(ScriptFileTest, AProgramThatDiesInTheMiddleOfStoringLeavesTheOldScriptOrTheNew) {
  const std::string path = world.counter();
  for (int delay = 0; delay < 40; ++delay) {
    const pid_t child = ::fork();
    if (child == 0)
      for (;;)
        (void)writeScriptFile(path, readScriptFile(path).container, PropertyListForm::binary);
    std::this_thread::sleep_for(std::chrono::microseconds(500 + 97 * delay));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ASSERT_EQ(readScriptFile(path).kind, ScriptFile::Kind::container);
  }
}

TEST_F(ScriptFileTest, WhatIsNoFileIsNeverReplaced) {
  const fs::path pipe = world.folder() / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(writeScriptFile(pipe.string(), readScriptFile(world.counter()).container,
                               PropertyListForm::binary));
  EXPECT_TRUE(fs::is_fifo(pipe));
}

TEST_F(ScriptFileTest, AListOfFilesIsGivenByTheirPaths) {
  const std::string path =
      world.compiled("files.scpt", "return {POSIX file \"/tmp/a b\", 7, missing value}");
  const auto script = world.scripts().initWithContentsOfFile(path);
  ASSERT_TRUE(script);
  const auto result = script->execute();
  ASSERT_TRUE(result);
  ASSERT_EQ(result->items.size(), 3U);
  EXPECT_EQ(textOfUnits(result->items[0]), "/tmp/a b");
  EXPECT_EQ(textOfUnits(result->items[1]), "7");
  EXPECT_EQ(textOfUnits(result->items[2]), "");
}

TEST_F(ScriptFileTest, WhatIsNoTextAndNoContainerIsRefused) {
  const std::string path = world.file("noise.scpt", std::string("\x00\xFF\x01", 3));
  EXPECT_NE(world.scripts().load(component, path).code, osaError::none);
}

} // namespace
} // namespace tavrel
