#include "platform/linux/x11/gestures/ButtonMonitor.h"
#include "platform/linux/menus/LinuxPresenter.h"
#include "support/Desktop.h"
#include "support/EnvironmentVariable.h"

#include <QApplication>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

void mouse(const char* what, const char* button) {
  xdotool({QString::fromLatin1(what), QString::fromLatin1(button)});
}

class ButtonMonitorTest : public ::testing::Test {
protected:
  ButtonMonitorTest() {
    xdotool({QStringLiteral("mousemove"), QStringLiteral("500"), QStringLiteral("500")});
    EXPECT_EQ(monitor.install([this](ButtonChange change) { changes.push_back(change); }), 0);
  }
  [[nodiscard]] bool comes(std::size_t count) {
    return eventually([&] { return changes.size() >= count; });
  }

  std::vector<ButtonChange> changes;
  ButtonMonitor monitor;
};

TEST_F(ButtonMonitorTest, AClickIsAPressAndARelease) {
  mouse("click", "1");
  ASSERT_TRUE(comes(2));
  EXPECT_THAT(changes, ElementsAre(ButtonChange::primaryPressed, ButtonChange::primaryReleased));
}

TEST_F(ButtonMonitorTest, OtherButtonsAndTheWheelAreReportedAsOthers) {
  mouse("click", "3");
  mouse("click", "5");
  ASSERT_TRUE(comes(2));
  EXPECT_THAT(changes, ElementsAre(ButtonChange::otherPressed, ButtonChange::otherPressed));
}

TEST_F(ButtonMonitorTest, MotionIsReportedDuringADragOnly) {
  xdotool({QStringLiteral("mousemove_relative"), QStringLiteral("20"), QStringLiteral("0")});
  mouse("mousedown", "1");
  ASSERT_TRUE(comes(1));
  EXPECT_THAT(changes, ElementsAre(ButtonChange::primaryPressed));
  xdotool({QStringLiteral("mousemove_relative"), QStringLiteral("20"), QStringLiteral("0")});
  EXPECT_TRUE(eventually([&] { return changes.back() == ButtonChange::moved; }));
  mouse("mouseup", "1");
  ASSERT_TRUE(eventually([&] { return changes.back() == ButtonChange::primaryReleased; }));
  const auto before = changes.size();
  xdotool({QStringLiteral("mousemove_relative"), QStringLiteral("20"), QStringLiteral("0")});
  mouse("click", "1");
  ASSERT_TRUE(comes(before + 2));
  EXPECT_EQ(changes[before], ButtonChange::primaryPressed);
}

TEST_F(ButtonMonitorTest, ButtonsAreReportedWhileAMenuHasGrabbedThePointer) {
  Menu menu{"menu"};
  menu.add({}).title = "Entry";
  LinuxPresenter presenter;
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, [&] {
    if (QApplication::activePopupWidget()) {
      poll.stop();
      mouse("click", "1");
    }
  });
  poll.start(5);
  presenter.popUp(menu, {100, 500}, MenuFont::standard);
  ASSERT_TRUE(comes(2));
  EXPECT_EQ(changes.front(), ButtonChange::primaryPressed);
  EXPECT_EQ(changes.back(), ButtonChange::primaryReleased);
}

TEST_F(ButtonMonitorTest, AnEmptyHandlerEndsTheReports) {
  EXPECT_EQ(monitor.install({}), 0);
  int later = 0;
  ButtonMonitor other;
  EXPECT_EQ(other.install([&](ButtonChange) { ++later; }), 0);
  mouse("click", "1");
  ASSERT_TRUE(eventually([&] { return later == 2; }));
  EXPECT_THAT(changes, IsEmpty());
}

TEST_F(ButtonMonitorTest, WithoutAServerNothingIsInstalled) {
  const EnvironmentVariable none("DISPLAY", ":nowhere");
  ButtonMonitor other;
  EXPECT_NE(other.install([](ButtonChange) {}), 0);
}

} // namespace
} // namespace tavrel
