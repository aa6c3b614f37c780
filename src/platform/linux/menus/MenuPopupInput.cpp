#include "platform/linux/menus/MenuPopup.h"

#include <QKeyEvent>
#include <QStyle>

#include <utility>

namespace tavrel {

namespace {
std::optional<RowStep> stepForKey(int key) {
  switch (key) {
  case Qt::Key_Up:
  case Qt::Key_Backtab:
    return RowStep::up;
  case Qt::Key_Down:
  case Qt::Key_Tab:
    return RowStep::down;
  case Qt::Key_Home:
    return RowStep::first;
  case Qt::Key_End:
    return RowStep::last;
  case Qt::Key_PageUp:
    return RowStep::pageUp;
  case Qt::Key_PageDown:
    return RowStep::pageDown;
  default:
    return std::nullopt;
  }
}
} // namespace

bool MenuPopup::choose(const QAction* action) {
  const auto row = rowOf(action);
  return row && choose(*row);
}

void MenuPopup::step(RowStep step) {
  const bool disabledToo =
      style()->styleHint(QStyle::SH_Menu_AllowActiveAndDisabled, nullptr, this);
  const auto takes = [&](std::size_t row) {
    return shown_.canBeUsed(row) || (disabledToo && !shown_.at(row)->isSeparator);
  };
  if (const auto row = rowAfter(step, currentRow(), shown_.size(), window_, takes))
    highlight(*row);
}

/// The arrows scroll for as long as the pointer rests there.
void MenuPopup::mouseMoveEvent(QMouseEvent* event) {
  scrolling_ = arrowAt(event->position().toPoint());
  if (!scrolling_) {
    scrollTimer_.stop();
    QMenu::mouseMoveEvent(event);
    if (activeAction())
      current_.reset();
    return;
  }
  if (!scrollTimer_.isActive())
    scrollTimer_.start();
}

void MenuPopup::mousePressEvent(QMouseEvent* event) {
  if (arrowAt(event->position().toPoint()))
    return;
  pressed_ = actionAt(event->position().toPoint());
  QMenu::mousePressEvent(event);
}

/// The toolkit has no entry that opens a submenu and can be chosen all the same, as folders are.
void MenuPopup::mouseReleaseEvent(QMouseEvent* event) {
  if (arrowAt(event->position().toPoint()))
    return;
  const QAction* pressed = std::exchange(pressed_, nullptr);
  const bool clicked = pressed && pressed == actionAt(event->position().toPoint());
  if (!clicked || !pressed->menu() || !choose(pressed))
    QMenu::mouseReleaseEvent(event);
}

/// A submenu opens as its key goes up: what fills it may look whether a key is down. Escape closes
/// with Option held, too.
void MenuPopup::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    return pressKey(Qt::Key_Escape);
  if (const auto next = stepForKey(event->key()); next && isLong_)
    return step(*next);
  if (!activeAction() && current_)
    highlight(*current_); // nobody chooses or opens what is out of sight
  const QAction* action = activeAction();
  const bool submenu = action && action->isEnabled() && action->menu();
  if (!submenu || !isOpeningKey(event->key()))
    return QMenu::keyPressEvent(event);
  if (!event->isAutoRepeat())
    openingKey_ = event->key();
}

void MenuPopup::keyReleaseEvent(QKeyEvent* event) {
  if (event->isAutoRepeat() || openingKey_ == 0 || event->key() != openingKey_)
    return QMenu::keyReleaseEvent(event);
  openingKey_ = 0;
  const bool sideways = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
  if (!sideways && choose(activeAction()))
    return;
  pressKey(event->key());
}

void MenuPopup::pressKey(int key) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
  QMenu::keyPressEvent(&press);
}

bool MenuPopup::isOpeningKey(int key) const {
  const int inwards = layoutDirection() == Qt::RightToLeft ? Qt::Key_Left : Qt::Key_Right;
  return key == inwards || key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
}

} // namespace tavrel
