#include "platform/linux/scripts/SelectedScript.h"

#include "contract/linux/scripts/FakeNotifications.h"
#include "contract/linux/scripts/ScriptHostFixture.h"
#include "support/EnvironmentVariable.h"
#include "support/WaitFor.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// A program of the user, run on what was captured for the menu.
class SelectedScript : public ScriptHostFixture {
protected:
  using ScriptHostFixture::ScriptHostFixture;
  OSAError run(const std::string& body, const std::string& name = "tell me.sh") {
    write(name, "#!/bin/sh\ncd '" + scratch.path().string() + "'\n" + body + "\n");
    const std::string path = (scratch.path() / name).string();
    ::chmod(path.c_str(), 0755);
    return runSelectedScript(path, {applications, pasteboards, log, runs});
  }
  void capture(const char* type, const PropertyList::Array& files) {
    selection.declareTypes({type});
    selection.setPropertyList(files, type);
  }
  Pasteboard& selection = pasteboards.named("TVRMenuPboardType");
};

TEST_F(SelectedScript, GetsTheCapturedFiles) {
  capture(pasteboardType::filenames, {"/a b", "/c\nd"});
  EXPECT_EQ(run("printf '%s|' \"$@\" >told; tr '\\0' '|' <\"$TAVREL_SELECTION_FILES\" >>told"),
            osaError::none);
  EXPECT_EQ(contents("told"), "/a b|/c\nd|/a b|/c\nd|");
}

TEST_F(SelectedScript, GetsTheFilesThatOnlyPathFinderNames) {
  capture(pasteboardType::pathFinderFilenames, {"/a b"});
  EXPECT_EQ(run("printf '%s|' \"$@\" >told"), osaError::none);
  EXPECT_EQ(contents("told"), "/a b|");
}

TEST_F(SelectedScript, GetsTheCapturedText) {
  selection.declareTypes({pasteboardType::string});
  selection.setString("one\ntwo", pasteboardType::string);
  EXPECT_EQ(run("cat >told; echo $# >>told"), osaError::none);
  EXPECT_EQ(contents("told"), "one\ntwo0\n");
}

TEST_F(SelectedScript, ComplainsInTheLogUnderItsName) {
  EXPECT_EQ(run("echo no >&2; exit 1"), osaError::scriptError);
  EXPECT_THAT(log.lines, ElementsAre("tell me.sh: no"));
}

TEST_F(SelectedScript, MayHaveAnyName) {
  for (const char* name : {"a b.sh", "a\nb.sh", "caf\xe9.sh", "it's $(x) \"quoted\".sh"}) {
    EXPECT_EQ(run("echo \"$0\" >told", name), osaError::none);
    EXPECT_EQ(contents("told"), (scratch.path() / name).string() + "\n");
  }
}

TEST_F(SelectedScript, SaysWhyItCannotStart) {
  write("lost.sh", "#!/nonexistent/interpreter\n");
  const std::string path = (scratch.path() / "lost.sh").string();
  ::chmod(path.c_str(), 0755);
  EXPECT_EQ(runSelectedScript(path, {applications, pasteboards, log, runs}), osaError::scriptError);
  EXPECT_THAT(log.lines, ElementsAre("lost.sh: cannot be started: No such file or directory"));
}

TEST_F(SelectedScript, WithMoreFilesThanArgumentsHoldIsToldAboutIt) {
  capture(pasteboardType::filenames, PropertyList::Array(4000, "/" + std::string(4000, 'x')));
  EXPECT_EQ(run("echo ran >told"), osaError::scriptError);
  EXPECT_THAT(log.lines, ElementsAre("tell me.sh: cannot be started: Argument list too long"));
}

TEST_F(SelectedScript, DoesNotRunOnAListOfFilesThatIsNotWhole) {
  const SmallDisk full(scratch.path() / "disk", "size=16k");
  if (!full.isMounted())
    GTEST_SKIP() << "no small file system can be mounted here";
  const EnvironmentVariable temporary("TMPDIR", (scratch.path() / "disk").string());
  write("disk/fill", std::string(std::size_t{64} << 10U, 'x'));
  capture(pasteboardType::filenames, {"/a b"});
  EXPECT_EQ(run("echo ran >told"), osaError::scriptError);
  EXPECT_EQ(contents("told"), "");
  EXPECT_THAT(log.lines, ElementsAre(HasSubstr("cannot be started")));
}

TEST_F(SelectedScript, WithoutFilesNeedsNoListOfThem) {
  const EnvironmentVariable nowhere("TMPDIR", "/proc/nowhere");
  EXPECT_EQ(run("echo ran >told"), osaError::none);
  EXPECT_THAT(log.lines, IsEmpty());
}

class StoppedProgram : public SelectedScript {
protected:
  StoppedProgram() : SelectedScript(0.01) { notifications.choosesStop = true; }
  FakeNotifications notifications;
};

TEST_F(StoppedProgram, IsNamedToTheUserWhoEndsIt) {
  const LongRunningScripts::RunningScript running(runs, "loop.sh");
  EXPECT_EQ(run("while :; do sleep 0.1; done", "loop.sh"), osaError::scriptError);
  EXPECT_EQ(notifications.title, "loop.sh");
}

} // namespace
} // namespace tavrel
