#include "contract/AccessibilityContract.h"

#include "platform/linux/ApplicationRegistry.h"
#include "platform/linux/BusProbe.h"
#include "platform/linux/DesktopWindows.h"
#include "platform/linux/LinuxAccessibility.h"
#include "platform/linux/OwnKeystrokes.h"
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
  LinuxAccessibility adapter{registry, windows, own};
  Accessibility& accessibility() { return adapter; }
  std::int32_t aProcess() { return ::getpid(); }
  std::int32_t noProcess() { return 0x3FFFFFFF; } // beyond the highest that the system gives
  Point emptyPlace() { return {1, 1}; }

  std::optional<PropertyList> roleAt(Point point) {
    return adapter.role(adapter.elementAt(adapter.systemWideElement(), point));
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, AccessibilityContract, LinuxAccessibilityWorld);

// The pointer tells where on the screen a place in a window is.
Point placeInTheOnlyWindow(LinuxAccessibilityWorld& world, int x, int y) {
  WindowId only = 0; // asked once: the window of the test before may be on its way out
  EXPECT_TRUE(eventually([&] {
    const std::vector<WindowId> all = world.windows.windows();
    only = all.empty() ? 0 : all.back();
    return only != 0;
  }));
  handle({QStringLiteral("mousemove"), QStringLiteral("--window"), QString::number(only),
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

TEST(LinuxAccessibility, WhileTheAccessibilityBusIsOffNothingWaits) {
  LinuxAccessibilityWorld world;
  const Program other(QStringLiteral(TAVREL_WINDOW_APPLICATION), {QStringLiteral("ordinary")});
  const Point inside = placeInTheOnlyWindow(world, 100, 50);
  QElapsedTimer clock;
  clock.start();
  EXPECT_FALSE(world.roleAt(inside));
  EXPECT_LT(clock.elapsed(), 100);
}

/// A socket where somebody listens, or only seems to.
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

TEST(LinuxAccessibility, ABusThatDoesNotAnswerIsNotWaitedFor) {
  const FakeBus silent("");
  QElapsedTimer clock;
  clock.start();
  EXPECT_FALSE(busAnswers(silent.address(), QDeadlineTimer(100)));
  EXPECT_LT(clock.elapsed(), 1000);
  EXPECT_FALSE(busAnswers(QStringLiteral("unix:path=/nowhere/bus"), QDeadlineTimer(100)));
  EXPECT_FALSE(busAnswers(QStringLiteral("nonsense"), QDeadlineTimer(100)));
}

TEST(LinuxAccessibility, ABusThatKnowsUsAnswers) {
  const FakeBus welcoming("OK 0123456789abcdef\r\n");
  EXPECT_TRUE(busAnswers(welcoming.address(), QDeadlineTimer(5000)));
  const FakeBus refusing("REJECTED EXTERNAL\r\n");
  EXPECT_FALSE(busAnswers(refusing.address(), QDeadlineTimer(5000)));
  EXPECT_TRUE(busAnswers(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), QDeadlineTimer(5000)));
}

TEST(LinuxAccessibility, AnEditorsMenusAreToldFromItsText) {
  const Program launcher(QStringLiteral("/usr/libexec/at-spi-bus-launcher"),
                         {QStringLiteral("--launch-immediately")});
  LinuxAccessibilityWorld world;
  const Program editor(QStringLiteral("mousepad"));
  const auto roleFromCorner = [&](int x, int y) {
    return world.roleAt(placeInTheOnlyWindow(world, x, y));
  };
  EXPECT_TRUE(eventually([&] { return roleFromCorner(20, 10) == PropertyList("AXMenuBarItem"); }));
  // The toolkit's pages do not tell what lies in them.
  EXPECT_TRUE(eventually([&] { return roleFromCorner(200, 200) == PropertyList("AXTabGroup"); }));
}

} // namespace
} // namespace tavrel
