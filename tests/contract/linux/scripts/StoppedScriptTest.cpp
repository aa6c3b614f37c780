#include "contract/linux/scripts/FakeNotifications.h"
#include "contract/linux/scripts/ScriptHostFixture.h"
#include "platform/linux/system/TerminationSignals.h"

#include <QApplication>

#include <csignal>

namespace tavrel {
namespace {

/// A script that the person stops, by the notification, while it waits.
class StoppedScript : public ScriptHostFixture {
protected:
  StoppedScript() : ScriptHostFixture(0.3) { notifications.choosesStop = true; }
  std::string stopped(const std::string& source) {
    const LongRunningScripts::RunningScript run(runs, "Patient");
    return result(source);
  }
  const std::string canceled = "error -128: User canceled.";
  FakeNotifications notifications;
};

TEST_F(StoppedScript, NoLongerWaitsForADialog) {
  for (const char* question :
       {"display dialog \"Go?\"", "display alert \"Oh\"", "choose from list {\"a\", \"b\"}",
        "choose file", "choose folder", "choose file name"}) {
    EXPECT_EQ(stopped(question), canceled) << question;
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }
}

TEST_F(StoppedScript, AsksForNothingMoreAfterItsDelay) {
  EXPECT_EQ(stopped("delay 1000\nwrite \"x\" to POSIX file " + quoted("late")), canceled);
  EXPECT_EQ(contents("late"), "");
}

TEST_F(StoppedScript, AsksForNothingMoreEvenWhenItTriesToGoOn) {
  (void)stopped("try\ndelay 1000\nend try\nwrite \"x\" to POSIX file " + quoted("late"));
  EXPECT_EQ(contents("late"), "");
}

TEST_F(StoppedScript, EndsALoopWithoutEnd) {
  EXPECT_EQ(stopped("repeat\nend repeat"), canceled);
  EXPECT_EQ(stopped("repeat\ndelay 0.01\nend repeat"), canceled);
}

TEST_F(StoppedScript, EndsALoopThatCatchesEveryError) {
  EXPECT_EQ(stopped("repeat\ntry\ndelay 0.01\nend try\nend repeat"), canceled);
}

TEST_F(StoppedScript, StopsWhenTheProgramIsToldToEnd) {
  notifications.choosesStop = false;
  ::signal(SIGTERM, SIG_DFL); // whatever whoever started the test made of it
  const TerminationSignals signals;
  ::raise(SIGTERM);
  EXPECT_EQ(stopped("repeat\ntry\ndisplay dialog \"Go?\"\nend try\nend repeat"), canceled);
}

TEST_F(StoppedScript, MayBeFollowedByAnother) {
  EXPECT_EQ(stopped("delay 1000"), canceled);
  notifications.choosesStop = false;
  EXPECT_EQ(stopped("beep\n7"), "7");
}

} // namespace
} // namespace tavrel
