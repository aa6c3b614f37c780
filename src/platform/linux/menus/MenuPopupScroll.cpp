#include "platform/linux/menus/MenuPopup.h"

#include <QApplication>
#include <QCursor>
#include <QPainter>
#include <QStyleOptionMenuItem>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace tavrel {

QSize MenuPopup::sizeHint() const {
  const QSize plain = QMenu::sizeHint();
  return isLong_ ? QSize(plain.width(), window_.viewHeight() + metrics_.frame) : plain;
}

/// Gives the toolkit the rows that are seen now. The highlight goes with its row, also out of
/// sight.
void MenuPopup::slide(Slots slots) {
  const RowWindow::Span span = window_.span();
  const auto current = currentRow();
  const bool moved = std::exchange(first_, span.first) != span.first;
  setContentsMargins(0, span.shift, 0, 0);
  mirror(shown_.part(span.first, span.count), slots);
  dropUnusedSubmenus();
  if (!moved)
    return;
  pressed_ = nullptr;
  current_ = current;
  setActiveAction(nullptr);
}

void MenuPopup::scroll(ScrollDirection direction, std::size_t rows) {
  window_.scroll(direction, rows);
  slide(Slots::changed);
}

void MenuPopup::scrollOn() {
  const QMenu* current = activeAction() ? activeAction()->menu() : nullptr;
  if (scrolling_ && !(current && current->isVisible()))
    scroll(*scrolling_, 1);
  if (!scrolling_ || !window_.canScroll(*scrolling_))
    scrollTimer_.stop();
}

std::optional<std::size_t> MenuPopup::rowAt(QPoint place) const {
  return arrowAt(place) ? std::nullopt : rowOf(actionAt(place));
}

void MenuPopup::highlightUnderPointer() {
  const auto row = rowAt(mapFromGlobal(QCursor::pos()));
  if (row && shown_.canBeUsed(*row))
    highlight(*row);
}

/// The toolkit goes by one row for each notch; what scrolls on this desktop goes by several.
void MenuPopup::wheelEvent(QWheelEvent* event) {
  const int lines = std::max(1, QApplication::wheelScrollLines());
  if (!isLong_) {
    for (int line = 0; line < lines; ++line)
      QMenu::wheelEvent(event);
    return;
  }
  if (event->angleDelta().y() == 0 || !rect().contains(event->position().toPoint()))
    return;
  scroll(event->angleDelta().y() > 0 ? ScrollDirection::up : ScrollDirection::down,
         static_cast<std::size_t>(lines));
  highlightUnderPointer();
}

QRect MenuPopup::arrowArea(ScrollDirection direction) const {
  const int bottom = metrics_.frame - metrics_.top;
  const int y =
      direction == ScrollDirection::up ? metrics_.top : height() - bottom - metrics_.arrow;
  return {metrics_.left, y, width() - 2 * metrics_.left, metrics_.arrow};
}

/// From the edge of the level on, as a hurried pointer goes there.
std::optional<ScrollDirection> MenuPopup::arrowAt(QPoint place) const {
  if (!isLong_ || !rect().contains(place))
    return std::nullopt;
  if (window_.canScroll(ScrollDirection::up) &&
      place.y() <= arrowArea(ScrollDirection::up).bottom())
    return ScrollDirection::up;
  if (window_.canScroll(ScrollDirection::down) &&
      place.y() >= arrowArea(ScrollDirection::down).top())
    return ScrollDirection::down;
  return std::nullopt;
}

void MenuPopup::paintEvent(QPaintEvent* event) {
  QMenu::paintEvent(event);
  if (!isLong_)
    return;
  QPainter painter(this);
  for (const auto direction : {ScrollDirection::up, ScrollDirection::down})
    if (window_.canScroll(direction))
      paintArrow(painter, direction);
}

/// As the toolkit does, over what shows of the row behind it.
void MenuPopup::paintArrow(QPainter& painter, ScrollDirection direction) const {
  QStyleOptionMenuItem option;
  option.initFrom(this);
  option.state = QStyle::State_None;
  option.checkType = QStyleOptionMenuItem::NotCheckable;
  option.maxIconWidth = 0;
  option.reservedShortcutWidth = 0;
  const QRect area = arrowArea(direction);
  painter.setClipRect(area);
  style()->drawPrimitive(QStyle::PE_PanelMenu, &option, &painter, this);
  option.rect = area;
  option.menuItemType = QStyleOptionMenuItem::EmptyArea;
  style()->drawControl(QStyle::CE_MenuEmptyArea, &option, &painter, this);
  option.menuItemType = QStyleOptionMenuItem::Scroller;
  if (direction == ScrollDirection::down)
    option.state |= QStyle::State_DownArrow;
  style()->drawControl(QStyle::CE_MenuScroller, &option, &painter, this);
}

/// A window manager has the last word on the size.
void MenuPopup::resizeEvent(QResizeEvent* event) {
  QMenu::resizeEvent(event);
  const int view = height() - metrics_.frame;
  if (!isLong_ || view == window_.viewHeight() || view <= 0)
    return;
  window_.setView(view, metrics_.arrow);
  slide(Slots::changed);
}

/// Columns as wide as any row of the level needs, seen or not.
void MenuPopup::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
  QMenu::initStyleOption(option, action);
  if (isLong_)
    option->reservedShortcutWidth = metrics_.shortcutWidth;
}

void MenuPopup::leaveEvent(QEvent* event) {
  scrollTimer_.stop();
  QMenu::leaveEvent(event);
}

void MenuPopup::hideEvent(QHideEvent* event) {
  scrollTimer_.stop();
  QMenu::hideEvent(event);
}

} // namespace tavrel
