#include "contract/AccessibilityContract.h"

#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/dbus/BusProbe.h"
#include "platform/linux/x11/keystrokes/OwnKeystrokes.h"
#include "platform/linux/x11/selection/LinuxAccessibility.h"
#include "platform/linux/x11/windows/DesktopWindows.h"
#include "support/Desktop.h"
#include "support/TemporaryFolder.h"

#include <QCursor>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>

#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace tavrel {
namespace {

struct LinuxAccessibilityWorld {
  ApplicationRegistry registry{{}};
  DesktopWindows windows;
  OwnKeystrokes own;
  LinuxAccessibility adapter{{registry, windows, own, nullptr}};
  Accessibility& accessibility() { return adapter; }
  std::int32_t aProcess() { return ::getpid(); }
  std::int32_t noProcess() { return 0x3FFFFFFF; } // beyond the highest that the system gives
  Point emptyPlace() { return {1, 1}; }

  std::optional<PropertyList> roleAt(Point point) {
    return adapter.role(adapter.elementAt(adapter.systemWideElement(), point));
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, AccessibilityContract, LinuxAccessibilityWorld);

// Moves the pointer to a place in the window, to get that place on the screen.
Point placeInTheOnlyWindow(LinuxAccessibilityWorld& world, int x, int y) {
  WindowId only = 0; // asked once: the window of the test before may be on its way out
  EXPECT_TRUE(eventually([&] {
    const std::vector<WindowId> all = world.windows.windows();
    only = all.empty() ? 0 : all.back();
    return only != 0;
  }));
  xdotool({QStringLiteral("mousemove"), QStringLiteral("--window"), QString::number(only),
           QString::number(x), QString::number(y)});
  const QPoint pointer = QCursor::pos();
  const int bottom = QGuiApplication::primaryScreen()->geometry().bottom();
  return {static_cast<double>(pointer.x()), static_cast<double>(bottom - pointer.y())};
}

TEST(LinuxAccessibility, WhatLiesInAPanelIsADockItem) {
  LinuxAccessibilityWorld world;
  const Program panel(QStringLiteral(TAVREL_WINDOW_APPLICATION), {QStringLiteral("dock")});
  const Point inside = placeInTheOnlyWindow(world, 100, 50);
  EXPECT_TRUE(eventually([&] { return world.roleAt(inside) == PropertyList("AXDockItem"); }));
}

TEST(LinuxAccessibility, WhileTheAccessibilityBusIsOffNothingBlocks) {
  LinuxAccessibilityWorld world;
  const Program other(QStringLiteral(TAVREL_WINDOW_APPLICATION), {QStringLiteral("ordinary")});
  const Point inside = placeInTheOnlyWindow(world, 100, 50);
  QElapsedTimer clock;
  clock.start();
  EXPECT_FALSE(world.roleAt(inside));
  EXPECT_LT(clock.elapsed(), 100);
}

/// A socket that accepts connections; without an answer nothing is ever sent.
class FakeBus {
public:
  explicit FakeBus(std::string answer)
      : answer_(std::move(answer)), socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    folder_.path("bus").copy(name.sun_path, sizeof name.sun_path - 1);
    EXPECT_EQ(::bind(socket_, reinterpret_cast<const sockaddr*>(&name), sizeof name), 0);
    EXPECT_EQ(::listen(socket_, 4), 0);
    if (!answer_.empty())
      thread_ = std::thread([this] {
        const int client = ::accept(socket_, nullptr, nullptr);
        (void)!::write(client, answer_.data(), answer_.size());
        ::close(client);
      });
  }
  ~FakeBus() {
    if (thread_.joinable())
      thread_.join();
    ::close(socket_);
  }
  FakeBus(const FakeBus&) = delete;
  FakeBus& operator=(const FakeBus&) = delete;
  [[nodiscard]] QString address() const {
    return QStringLiteral("unix:path=%1,guid=0").arg(QString::fromStdString(folder_.path("bus")));
  }

private:
  TemporaryFolder folder_;
  std::string answer_;
  int socket_;
  std::thread thread_;
};

TEST(LinuxAccessibility, ABusThatDoesNotAnswerHitsTheTimeout) {
  const FakeBus silent("");
  QElapsedTimer clock;
  clock.start();
  EXPECT_FALSE(busAnswers(silent.address(), QDeadlineTimer(100)));
  EXPECT_LT(clock.elapsed(), 1000);
  EXPECT_FALSE(busAnswers(QStringLiteral("unix:path=/nowhere/bus"), QDeadlineTimer(100)));
  EXPECT_FALSE(busAnswers(QStringLiteral("nonsense"), QDeadlineTimer(100)));
}

TEST(LinuxAccessibility, ABusThatAuthenticatesUsAnswers) {
  const FakeBus welcoming("OK 0123456789abcdef\r\n");
  EXPECT_TRUE(busAnswers(welcoming.address(), QDeadlineTimer(5000)));
  const FakeBus refusing("REJECTED EXTERNAL\r\n");
  EXPECT_FALSE(busAnswers(refusing.address(), QDeadlineTimer(5000)));
  EXPECT_TRUE(busAnswers(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), QDeadlineTimer(5000)));
}

/// The accessibility bus is on, and what is started from now on joins it.
class OnTheAccessibilityBus : public ::testing::Test {
protected:
  OnTheAccessibilityBus() { qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1"); }
  ~OnTheAccessibilityBus() override { qunsetenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"); }

  [[nodiscard]] bool comesToBe(const char* role, int x, int y) {
    return eventually(
        [&] { return world.roleAt(placeInTheOnlyWindow(world, x, y)) == PropertyList(role); });
  }
  /// At a point of the screen, with this window on top.
  [[nodiscard]] bool comesToBe(const char* role, WindowId onTop, Point where) {
    xdotool({QStringLiteral("windowraise"), QString::number(onTop)});
    return eventually([&] { return world.roleAt(where) == PropertyList(role); });
  }
  void move(WindowId window, int x, int y) {
    xdotool({QStringLiteral("windowmove"), QStringLiteral("--sync"), QString::number(window),
             QString::number(x), QString::number(y)});
  }

  const Program launcher{QStringLiteral("/usr/libexec/at-spi-bus-launcher"),
                         {QStringLiteral("--launch-immediately")}};
  LinuxAccessibilityWorld world;
};

TEST_F(OnTheAccessibilityBus, AnEditorsMenuBarAndTextHaveDifferentRoles) {
  const Program editor(QStringLiteral("mousepad"));
  EXPECT_TRUE(comesToBe("AXMenuBarItem", 20, 10));
  // GTK 3 does not expose what is in the page of a notebook.
  EXPECT_TRUE(comesToBe("AXTabGroup", 200, 200));
}

TEST_F(OnTheAccessibilityBus, TheLabelInAButtonIsTheButton) {
  const Program other(QStringLiteral(TAVREL_WINDOW_APPLICATION), {QStringLiteral("button")});
  EXPECT_TRUE(comesToBe("AXButton", 100, 50));
}

TEST_F(OnTheAccessibilityBus, OfWindowsThatOverlapTheOneOnTopCounts) {
  const Program other(QStringLiteral(TAVREL_WINDOW_APPLICATION),
                      {QStringLiteral("field"), QStringLiteral("button")});
  std::vector<WindowId> windows;
  ASSERT_TRUE(eventually([&] { return (windows = world.windows.windows()).size() == 2; }));
  move(windows[0], 300, 300);
  move(windows[1], 350, 340);
  const int bottom = QGuiApplication::primaryScreen()->geometry().bottom();
  const Point inBoth{440, bottom - 390.0};
  for (int round = 0; round < 2; ++round) {
    EXPECT_TRUE(comesToBe("AXTextField", windows[0], inBoth));
    EXPECT_TRUE(comesToBe("AXButton", windows[1], inBoth));
  }
}

TEST_F(OnTheAccessibilityBus, TheElementWithTheKeyboardIsKnownByItsRole) {
  constexpr std::uint32_t text = 61;
  for (const auto& [program, arguments] : {std::pair(QStringLiteral("mousepad"), QStringList{}),
                                           std::pair(QStringLiteral(TAVREL_WINDOW_APPLICATION),
                                                     QStringList{QStringLiteral("field")})}) {
    const Program other(program, arguments);
    EXPECT_TRUE(eventually([&] {
      const auto facts = world.windows.facts(world.windows.activeWindow());
      AccessibilityBus bus;
      const auto roles = bus.focusedRoles(facts ? facts->pid : 0, QDeadlineTimer(1000));
      return roles && std::ranges::find(*roles, text) != roles->end();
    })) << program.toStdString();
  }
}

} // namespace
} // namespace tavrel
