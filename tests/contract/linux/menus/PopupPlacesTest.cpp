#include "platform/linux/menus/LinuxPresenter.h"
#include "support/Desktop.h"

#include <QApplication>
#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

/// In the server's own pixels, whatever the scale.
QRect pixelsOf(const QWidget& widget) {
  QProcess process;
  process.start(QStringLiteral("xdotool"),
                {QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"),
                 QString::number(widget.internalWinId())});
  process.waitForFinished();
  QMap<QString, int> facts;
  for (const QString& line : QString::fromLatin1(process.readAllStandardOutput()).split('\n'))
    facts[line.section('=', 0, 0)] = line.section('=', 1).toInt();
  return {facts[QStringLiteral("X")], facts[QStringLiteral("Y")], facts[QStringLiteral("WIDTH")],
          facts[QStringLiteral("HEIGHT")]};
}

void setMonitor(const char* name, const QRect& area, const char* output) {
  const QString geometry = QStringLiteral("%1/300x%2/200+%3+%4")
                               .arg(area.width())
                               .arg(area.height())
                               .arg(area.x())
                               .arg(area.y());
  QProcess::execute(QStringLiteral("xrandr"),
                    {QStringLiteral("--setmonitor"), QString::fromLatin1(name), geometry,
                     QString::fromLatin1(output)});
}

QString outputName() {
  QProcess process;
  process.start(QStringLiteral("xrandr"));
  process.waitForFinished();
  for (const QString& line : QString::fromLatin1(process.readAllStandardOutput()).split('\n'))
    if (line.contains(QStringLiteral(" connected")))
      return line.section(' ', 0, 0);
  return QStringLiteral("none");
}

/// Two monitors side by side, of two sizes: below the right one there is nothing.
class PopupPlaces : public ::testing::Test {
protected:
  PopupPlaces() {
    for (int row = 0; row < 10; ++row)
      menu.add({}).title = "A rather long entry " + std::to_string(row);
    setMonitor("left", left, outputName().toLatin1().constData());
    setMonitor("right", right, "none");
    EXPECT_TRUE(eventually([] { return QGuiApplication::screens().size() == 2; }));
  }
  ~PopupPlaces() override {
    for (const char* name : {"right", "left"})
      QProcess::execute(QStringLiteral("xrandr"),
                        {QStringLiteral("--delmonitor"), QString::fromLatin1(name)});
    EXPECT_TRUE(eventually([] { return QGuiApplication::screens().size() == 1; }));
  }

  QRect placeWithPointerAt(QPoint pixel) {
    xdotool({QStringLiteral("mousemove"), QString::number(pixel.x()), QString::number(pixel.y())});
    QRect place;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
      QWidget* popup = QApplication::activePopupWidget();
      if (!popup || !popup->windowHandle() || !popup->windowHandle()->isExposed())
        return;
      place = pixelsOf(*popup);
      popup->close();
    });
    poll.start(5);
    presenter.popUp(menu, presenter.pointerLocation(), MenuFont::standard);
    return place;
  }

  const QRect left{0, 0, 700, 800};
  const QRect right{700, 0, 580, 500};
  LinuxPresenter presenter;
  Menu menu{"menu"};
};

TEST_F(PopupPlaces, AMenuIsWholeOnTheMonitorOfThePointerInEveryCorner) {
  for (const QRect& monitor : {left, right})
    for (const QPoint corner : {monitor.topLeft(), monitor.topRight(), monitor.bottomLeft(),
                                monitor.bottomRight(), monitor.center()}) {
      const QRect place = placeWithPointerAt(corner);
      EXPECT_TRUE(!place.isEmpty() && monitor.contains(place))
          << corner.x() << "," << corner.y() << ": " << place.x() << "," << place.y() << " "
          << place.width() << "x" << place.height();
    }
}

TEST_F(PopupPlaces, AMenuWithRoomOpensRightAtThePointer) {
  const double scale = QGuiApplication::primaryScreen()->devicePixelRatio();
  for (const QRect& monitor : {left, right}) {
    const QPoint pointer = monitor.topLeft() + QPoint(20, 20);
    const QPoint apart = placeWithPointerAt(pointer).topLeft() - pointer;
    EXPECT_LE(apart.manhattanLength(), 2 * scale) << pointer.x();
  }
}

TEST_F(PopupPlaces, ALongMenuFillsTheMonitorOfThePointer) {
  for (int row = 0; row < 1000; ++row)
    menu.add({}).title = "Entry " + std::to_string(row);
  for (const QRect& monitor : {left, right})
    for (const QPoint corner : {monitor.topLeft(), monitor.bottomRight(), monitor.center()}) {
      const QRect place = placeWithPointerAt(corner);
      EXPECT_TRUE(monitor.contains(place)) << corner.x() << "," << corner.y();
      EXPECT_GT(place.height(), monitor.height() * 9 / 10) << corner.x() << "," << corner.y();
    }
}

TEST_F(PopupPlaces, ALongSubmenuStaysOnTheMonitorOfItsMenu) {
  auto inner = std::make_shared<Menu>("inner");
  for (int row = 0; row < 1000; ++row)
    inner->add({}).title = "Entry " + std::to_string(row);
  menu.add({}).submenu = inner;
  xdotool({QStringLiteral("mousemove"), QStringLiteral("720"), QStringLiteral("20")});
  QRect place;
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, [&] {
    auto* level = dynamic_cast<MenuPopup*>(QApplication::activePopupWidget());
    if (!level || !level->windowHandle() || !level->windowHandle()->isExposed())
      return;
    if (&level->menu() == &menu)
      return level->openSubmenu(10);
    place = pixelsOf(*level);
    level->close();
    if (auto* outer = QApplication::activePopupWidget())
      outer->close();
  });
  poll.start(5);
  presenter.popUp(menu, presenter.pointerLocation(), MenuFont::standard);
  EXPECT_TRUE(right.contains(place)) << place.y() << " " << place.height();
  EXPECT_GT(place.height(), right.height() * 9 / 10);
}

} // namespace
} // namespace tavrel
