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
  return isLong_ ? QSize(plain.width(), visibleRows_.viewHeight() + metrics_.frame) : plain;
}

/// Gives the actions the rows that are visible now. The highlight stays with its row, also when
/// that is not visible.
void MenuPopup::refreshVisibleRows(Slots slots) {
  const RowWindow::Span span = visibleRows_.span();
  const auto current = currentRow();
  const bool moved = std::exchange(firstRow_, span.first) != span.first;
  setContentsMargins(0, span.shift, 0, 0);
  mirror(rows_.slice(span.first, span.count), slots);
  dropUnusedSubmenus();
  if (!moved)
    return;
  pressedAction_ = nullptr;
  scrolledOutRow_ = current;
  setActiveAction(nullptr);
}

void MenuPopup::scroll(ScrollDirection direction, std::size_t rows) {
  visibleRows_.scroll(direction, rows);
  refreshVisibleRows(Slots::changed);
}

void MenuPopup::scrollOn() {
  const QMenu* current = activeAction() ? activeAction()->menu() : nullptr;
  if (scrolling_ && !(current && current->isVisible()))
    scroll(*scrolling_, 1);
  if (!scrolling_ || !visibleRows_.canScroll(*scrolling_))
    scrollTimer_.stop();
}

std::optional<std::size_t> MenuPopup::rowAt(QPoint place) const {
  return arrowAt(place) ? std::nullopt : rowOf(actionAt(place));
}

void MenuPopup::highlightUnderPointer() {
  const auto row = rowAt(mapFromGlobal(QCursor::pos()));
  if (row && rows_.canBeUsed(*row))
    highlight(*row);
}

/// QMenu scrolls by one row for each notch of the wheel; the desktop's setting is several.
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

/// An arrow's area reaches to the edge of the level, so that it is easy to hit.
std::optional<ScrollDirection> MenuPopup::arrowAt(QPoint place) const {
  if (!isLong_ || !rect().contains(place))
    return std::nullopt;
  if (visibleRows_.canScroll(ScrollDirection::up) &&
      place.y() <= arrowArea(ScrollDirection::up).bottom())
    return ScrollDirection::up;
  if (visibleRows_.canScroll(ScrollDirection::down) &&
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
    if (visibleRows_.canScroll(direction))
      paintArrow(painter, direction);
}

/// Painted as QMenu does, over the row behind it.
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

/// A window manager may have given the level another size.
void MenuPopup::resizeEvent(QResizeEvent* event) {
  QMenu::resizeEvent(event);
  const int view = height() - metrics_.frame;
  if (!isLong_ || view == visibleRows_.viewHeight() || view <= 0)
    return;
  visibleRows_.setView(view, metrics_.arrow);
  refreshVisibleRows(Slots::changed);
}

/// The column of key equivalents is as wide as any row of the level needs, visible or not.
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
