#include "contract/AccessibilityContract.h"

#include "platform/linux/ApplicationRegistry.h"
#include "platform/linux/DesktopWindows.h"
#include "platform/linux/LinuxAccessibility.h"
#include "platform/linux/OwnKeystrokes.h"
#include "support/Desktop.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>

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

// The window application's windows have nothing in them.
Point middleOfTheOnlyWindow(LinuxAccessibilityWorld& world) {
  QProcess geometry;
  EXPECT_TRUE(eventually([&] { return !world.windows.windows().empty(); }));
  geometry.start(QStringLiteral("xdotool"),
                 {QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"),
                  QString::number(world.windows.windows().back())});
  geometry.waitForFinished();
  double x = 0;
  double y = 0;
  for (const QByteArray& line : geometry.readAllStandardOutput().split('\n')) {
    x = line.startsWith("X=") ? line.mid(2).toDouble() : x;
    y = line.startsWith("Y=") ? line.mid(2).toDouble() : y;
  }
  return {x + 100, QGuiApplication::primaryScreen()->geometry().height() - 1 - (y + 50)};
}

TEST(LinuxAccessibility, WhatLiesInAPanelIsADockItem) {
  LinuxAccessibilityWorld world;
  const Program panel(QStringLiteral(TAVREL_WINDOW_APPLICATION), {QStringLiteral("dock")});
  const Point inside = middleOfTheOnlyWindow(world);
  EXPECT_TRUE(eventually([&] { return world.roleAt(inside) == PropertyList("AXDockItem"); }));
}

TEST(LinuxAccessibility, WhileTheAccessibilityBusIsOffNothingWaits) {
  LinuxAccessibilityWorld world;
  const Program other(QStringLiteral(TAVREL_WINDOW_APPLICATION), {QStringLiteral("ordinary")});
  const Point inside = middleOfTheOnlyWindow(world);
  QElapsedTimer clock;
  clock.start();
  EXPECT_FALSE(world.roleAt(inside));
  EXPECT_LT(clock.elapsed(), 100);
}

TEST(LinuxAccessibility, AnEditorsMenusAreToldFromItsText) {
  const Program launcher(QStringLiteral("/usr/libexec/at-spi-bus-launcher"),
                         {QStringLiteral("--launch-immediately")});
  LinuxAccessibilityWorld world;
  const Program editor(QStringLiteral("mousepad"));
  const auto roleFromCorner = [&](double x, double y) {
    const Point middle = middleOfTheOnlyWindow(world);
    return world.roleAt({middle.x - 100 + x, middle.y + 50 - y});
  };
  EXPECT_TRUE(eventually([&] { return roleFromCorner(20, 10) == PropertyList("AXMenuBarItem"); }));
  // The toolkit's pages do not tell what lies in them.
  EXPECT_TRUE(eventually([&] { return roleFromCorner(200, 200) == PropertyList("AXTabGroup"); }));
}

} // namespace
} // namespace tavrel
