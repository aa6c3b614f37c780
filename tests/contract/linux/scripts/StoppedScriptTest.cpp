#include "contract/linux/scripts/FakeNotifications.h"
#include "contract/linux/scripts/ScriptHostFixture.h"
#include "platform/linux/system/TerminationSignals.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <QWidget>

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

/// Tells the program to end once a dialog is open. Dialogs that outlast that are closed by hand, so
/// that the test comes to its end.
class EndAtFirstDialog {
public:
  EndAtFirstDialog() {
    QObject::connect(&looks_, &QTimer::timeout, [this] { look(); });
    looks_.start(5);
  }
  [[nodiscard]] bool hasCome() const { return since_.isValid(); }
  [[nodiscard]] int closedByHand() const { return closedByHand_; }

private:
  void look() {
    QWidget* dialog = QApplication::activeModalWidget();
    if (dialog && !hasCome()) {
      first_ = dialog;
      since_.start();
      ::raise(SIGTERM);
    } else if (dialog && (dialog != first_ || since_.hasExpired(10'000))) {
      ++closedByHand_;
      dialog->close();
    }
  }

  QTimer looks_;
  QPointer<QWidget> first_;
  QElapsedTimer since_;
  int closedByHand_ = 0;
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
  EndAtFirstDialog end;
  EXPECT_EQ(stopped("repeat 3 times\ntry\ndisplay dialog \"Go?\"\nend try\nend repeat"), canceled);
  EXPECT_TRUE(end.hasCome());
  EXPECT_EQ(end.closedByHand(), 0);
}

TEST_F(StoppedScript, MayBeFollowedByAnother) {
  EXPECT_EQ(stopped("delay 1000"), canceled);
  notifications.choosesStop = false;
  EXPECT_EQ(stopped("beep\n7"), "7");
}

} // namespace
} // namespace tavrel
