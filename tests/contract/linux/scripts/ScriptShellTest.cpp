#include "contract/linux/scripts/ScriptHostFixture.h"

#include "contract/linux/scripts/FakeNotifications.h"
#include "support/WaitFor.h"

#include <csignal>
#include <sys/wait.h>

namespace tavrel {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;
using Elapsed = std::chrono::steady_clock;

/// One that is dead but not yet reaped does not run.
bool isRunning(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  const std::string stat{std::istreambuf_iterator<char>(file), {}};
  const std::size_t name = stat.rfind(") ");
  return name != std::string::npos && stat[name + 2] != 'Z';
}

/// Shell commands of scripts, written into files so that no quoting stands in the way.
class ScriptShellTest : public ScriptHostFixture {
protected:
  using ScriptHostFixture::ScriptHostFixture;
  std::string shell(const std::string& body) {
    write("command", body);
    return result("do shell script \"cd " + scratch.path().string() + " && . ./command\"");
  }
  [[nodiscard]] bool isAlive(const std::string& name) const {
    const std::string number = contents(name);
    return !number.empty() && isRunning(std::stoi(number));
  }
};

TEST_F(ScriptShellTest, ACommandMayLeaveAProcessThatHoldsItsOutput) {
  const auto start = Elapsed::now();
  EXPECT_EQ(shell("sleep 100 & echo $! >left; echo done"), "\"done\"");
  EXPECT_LT(Elapsed::now() - start, std::chrono::seconds(20));
  EXPECT_TRUE(isAlive("left"));
  ::kill(std::stoi(contents("left")), SIGKILL);
}

TEST_F(ScriptShellTest, MuchOutputArrivesWhole) {
  EXPECT_EQ(result("length of (do shell script \"head -c 5000000 /dev/zero | tr '\\\\0' x\")"),
            "5000000");
}

TEST_F(ScriptShellTest, OutputThatNeverEndsIsAnErrorAndStaysSmall) {
  EXPECT_THAT(shell("echo $$ >shell; exec tr '\\0' x </dev/zero"), HasSubstr("error -108"));
  EXPECT_FALSE(isAlive("shell"));
}

TEST_F(ScriptShellTest, ComplaintsWithoutMeasureHarmNobody) {
  EXPECT_EQ(shell("head -c 300000000 /dev/zero >&2; echo done"), "\"done\"");
  const std::string error = shell("head -c 30000000 /dev/zero | tr '\\0' x >&2; exit 3");
  EXPECT_THAT(error, StartsWith("error 3: xxx"));
  EXPECT_LT(error.size(), std::size_t{2} << 20U);
}

TEST_F(ScriptShellTest, OutputThatIsNoTextIsAnErrorAndNotGuessedAt) {
  EXPECT_EQ(shell("printf 'caf\\351'"), "error -1700: What the command printed is no UTF-8 text.");
}

TEST_F(ScriptShellTest, NamesThatAreNoTextReachTheShellAsTheyAre) {
  const std::string folder = (scratch.path() / "names").string();
  std::filesystem::create_directory(folder);
  write("names/caf\xe9", "found");
  EXPECT_EQ(result("do shell script \"cat \" & quoted form of (\"" + folder +
                   "/\" & item 1 of (list folder POSIX file \"" + folder + "\"))"),
            "\"found\"");
}

TEST_F(ScriptShellTest, ACommandIsNeverCutShort) {
  EXPECT_THAT(result("do shell script \"touch " + (scratch.path() / "made").string() +
                     "\" & character id 0 & \"-not\""),
              StartsWith("error -"));
  EXPECT_FALSE(std::filesystem::exists(scratch.path() / "made"));
}

TEST_F(ScriptShellTest, ACommandWorksInTheRootFolderAndReadsNothing) {
  EXPECT_EQ(result("do shell script \"pwd; cat\""), "\"/\"");
}

TEST_F(ScriptShellTest, ACommandThatASignalEndsIsAnError) {
  EXPECT_THAT(shell("kill -9 $$"), HasSubstr("signal"));
}

TEST_F(ScriptShellTest, NoDeadChildIsLeft) {
  (void)shell("sleep 0.1 & exit 0");
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
}

class StoppedShell : public ScriptShellTest {
protected:
  StoppedShell() : ScriptShellTest(0.01) { notifications.choosesStop = true; }
  FakeNotifications notifications;
};

TEST_F(StoppedShell, StoppingEndsTheCommandAndAllItStarted) {
  const LongRunningScripts::RunningScript run(runs, "Endless");
  EXPECT_EQ(shell("(sleep 1000 & echo $! >below; wait); echo never"), "error -128: User canceled.");
  EXPECT_TRUE(waitFor([&] { return !isAlive("below"); }));
}

} // namespace
} // namespace tavrel
