#include "platform/linux/system/TerminationSignals.h"

#include "platform/linux/installation/LinuxAuthorization.h"
#include "platform/linux/session/LinuxAlerts.h"
#include "support/Desktop.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include <functional>
#include <optional>

namespace tavrel {
namespace {

constexpr int stillThere = 7;

/// Does something in an event loop that a deadline ends; the code it ended with.
int runWith(const std::function<void()>& deed) {
  QTimer deadline;
  QObject::connect(&deadline, &QTimer::timeout, [] { QCoreApplication::exit(stillThere); });
  deadline.start(10000);
  QTimer::singleShot(0, deed);
  return QApplication::exec();
}

/// Whatever the one who started the test made of them, each signal is there to be handled.
class TerminationSignalsTest : public ::testing::Test {
protected:
  TerminationSignalsTest() {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
      ::signal(signal, SIG_DFL);
  }
};

bool isSignalHandled(int signal) {
  struct sigaction action = {};
  ::sigaction(signal, nullptr, &action);
  return action.sa_handler != SIG_DFL && action.sa_handler != SIG_IGN;
}

TEST_F(TerminationSignalsTest, EachEndsTheEventLoop) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    const TerminationSignals signals;
    EXPECT_EQ(runWith([signal] { ::raise(signal); }), 0) << signal;
  }
}

TEST_F(TerminationSignalsTest, WhatTakesLongCanAskForThem) {
  const TerminationSignals signals;
  EXPECT_FALSE(TerminationSignals::wereReceived());
  ::raise(SIGTERM);
  EXPECT_TRUE(TerminationSignals::wereReceived());
}

TEST_F(TerminationSignalsTest, OneThatCameBeforeTheLoopEndsItToo) {
  const TerminationSignals signals;
  ::raise(SIGTERM);
  EXPECT_EQ(runWith([] {}), 0);
}

TEST_F(TerminationSignalsTest, TheSameOnceMoreIsNotHandledAnyMore) {
  const TerminationSignals signals;
  EXPECT_TRUE(isSignalHandled(SIGTERM));
  ::raise(SIGTERM);
  EXPECT_FALSE(isSignalHandled(SIGTERM));
  EXPECT_TRUE(isSignalHandled(SIGINT));
}

TEST_F(TerminationSignalsTest, OneThatIsIgnoredStaysIgnored) {
  ::signal(SIGHUP, SIG_IGN);
  const TerminationSignals signals;
  EXPECT_EQ(runWith([] {
              ::raise(SIGHUP);
              QTimer::singleShot(50, [] { QCoreApplication::exit(1); });
            }),
            1);
}

TEST_F(TerminationSignalsTest, WhatWasThereBeforeComesBack) {
  (void)TerminationSignals{};
  for (const int signal : {SIGTERM, SIGINT, SIGHUP})
    EXPECT_FALSE(isSignalHandled(signal)) << signal;
}

// Nobody has confirmed anything.
TEST_F(TerminationSignalsTest, APanelThatIsOpenAnswersItsAlternate) {
  const TerminationSignals signals;
  std::optional<AlertAnswer> answer;
  EXPECT_EQ(runWith([&] {
              QTimer::singleShot(0, [] { ::raise(SIGTERM); });
              answer = LinuxAlerts().run({.title = "T",
                                          .message = "Are you sure?",
                                          .defaultButton = "Uninstall",
                                          .alternateButton = "Cancel"});
            }),
            0);
  EXPECT_EQ(answer, AlertAnswer::alternate);
}

TEST_F(TerminationSignalsTest, WhoeverIsAskedForRightsIsNotWaitedFor) {
  const TerminationSignals signals;
  std::optional<bool> granted;
  EXPECT_EQ(runWith([&] {
              QTimer::singleShot(0, [] { ::raise(SIGTERM); });
              const auto reference = LinuxAuthorization({"sleep", "60"}).create();
              granted = reference->copyRights("qorvane.tavrel.uninstall",
                                              authorizationFlag::interactionAllowed);
              reference->free(authorizationFlag::destroyRights);
            }),
            0);
  EXPECT_EQ(granted, false);
}

} // namespace
} // namespace tavrel
