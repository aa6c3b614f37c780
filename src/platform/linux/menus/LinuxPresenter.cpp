#include "platform/linux/menus/LinuxPresenter.h"

#include "platform/linux/menus/AccessibleLevel.h"
#include "platform/linux/menus/MenuSession.h"
#include "platform/linux/x11/gestures/GestureKeyBuffer.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavrel {

namespace {
/// The ports count y upwards from the lowest row of the main screen; the toolkit has this number
/// for it.
int bottomRow() {
  return QGuiApplication::primaryScreen()->geometry().bottom();
}

int leftColumn() {
  return QGuiApplication::primaryScreen()->geometry().left();
}

int distance(const QRect& area, QPoint point) {
  const QPoint nearest(std::clamp(point.x(), area.left(), area.right()),
                       std::clamp(point.y(), area.top(), area.bottom()));
  return (point - nearest).manhattanLength();
}

/// The point itself when a screen shows it, else the nearest one that a screen shows.
QPoint onScreen(QPoint point) {
  const auto screens = QGuiApplication::screens();
  const auto* nearest = *std::min_element(screens.begin(), screens.end(), [&](auto* a, auto* b) {
    return distance(a->geometry(), point) < distance(b->geometry(), point);
  });
  const QRect area = nearest->geometry();
  return {std::clamp(point.x(), area.left(), area.right()),
          std::clamp(point.y(), area.top(), area.bottom())};
}

int pixel(double value) {
  constexpr double farthest = 1e6;
  return std::isnan(value) ? 0
                           : static_cast<int>(std::lround(std::clamp(value, -farthest, farthest)));
}
} // namespace

void LinuxPresenter::popUp(Menu& menu, Point where, MenuFont font) {
  const QPoint topLeft(leftColumn() + pixel(where.x), bottomRow() - pixel(where.y));
  popUpBeside(menu, QRect(topLeft, QSize(0, 0)), font);
}

void LinuxPresenter::popUpBeside(Menu& menu, const QRect& anchor, MenuFont font) {
  if (std::exchange(open_, true))
    return;
  ensureAccessibleLevels();
  MenuSession session(menu, font, localize_, longestPlain_);
  session.run(QRect(onScreen(anchor.topLeft()), anchor.size()));
  GestureKeyBuffer::waitForReplay();
  open_ = false; // carrying out the entry may take long, and the menu can open again meanwhile
  session.finish(target_);
  closed_();
}

Point LinuxPresenter::pointerLocation() {
  const QPoint pointer = QCursor::pos();
  return {static_cast<double>(pointer.x() - leftColumn()),
          static_cast<double>(bottomRow() - pointer.y())};
}

} // namespace tavrel
