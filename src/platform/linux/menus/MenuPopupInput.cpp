#include "platform/linux/menus/MenuPopup.h"

#include <QApplication>
#include <QKeyEvent>
#include <QStyle>

#include <utility>

namespace tavrel {

namespace {
/// As the toolkit has it, with the one that it leaves out.
constexpr int motionsOfAMovingPointer = 8;

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
  const auto canHaveHighlight = [&](std::size_t row) {
    return rows_.canBeUsed(row) || (disabledToo && !rows_.at(row)->isSeparator);
  };
  if (const auto row = rowAfter(step, currentRow(), rows_.size(), visibleRows_, canHaveHighlight))
    highlight(*row);
}

/// The arrows scroll while the pointer is on them.
void MenuPopup::mouseMoveEvent(QMouseEvent* event) {
  scrolling_ = arrowAt(event->position().toPoint());
  if (!scrolling_) {
    scrollTimer_.stop();
    followPointer(*event);
    if (activeAction())
      scrolledOutRow_.reset();
    return;
  }
  if (!scrollTimer_.isActive())
    scrollTimer_.start();
}

void MenuPopup::mousePressEvent(QMouseEvent* event) {
  if (arrowAt(event->position().toPoint()))
    return;
  pressedAction_ = actionAt(event->position().toPoint());
  bringPointer(*event);
  QMenu::mousePressEvent(event);
}

/// The toolkit takes the pointer for one at rest, whose click closes the menu, until it is away
/// from where it was at the opening or has moved some times. That place is a guess: newer versions
/// know only where the pointer was last over a window of ours.
void MenuPopup::followPointer(QMouseEvent& motion) {
  QMenu::mouseMoveEvent(&motion);
  for (int times = 1; times < motionsOfAMovingPointer && isLeftBehind(motion); ++times)
    QMenu::mouseMoveEvent(&motion);
}

/// A finger comes without a motion.
void MenuPopup::bringPointer(const QMouseEvent& press) {
  QMouseEvent motion(QEvent::MouseMove, press.position(), press.globalPosition(), Qt::NoButton,
                     Qt::NoButton, press.modifiers());
  for (int times = 0; times < motionsOfAMovingPointer && hasMoved(press); ++times)
    QMenu::mouseMoveEvent(&motion);
}

bool MenuPopup::hasMoved(const QMouseEvent& pointer) const {
  const QPoint way = pointer.globalPosition().toPoint() - pointerAtOpening_;
  return way.manhattanLength() > QApplication::startDragDistance();
}

/// An open submenu keeps the highlight while the pointer is on its way there.
bool MenuPopup::isLeftBehind(const QMouseEvent& pointer) const {
  const QAction* current = activeAction();
  const QAction* under = actionAt(pointer.position().toPoint());
  const bool isSubmenuOpen = current && current->menu() && current->menu()->isVisible();
  return hasMoved(pointer) && under && under != current && under->isEnabled() &&
         !under->isSeparator() && !isSubmenuOpen;
}

/// In QMenu an entry with a submenu cannot be chosen; here folders can.
void MenuPopup::mouseReleaseEvent(QMouseEvent* event) {
  if (arrowAt(event->position().toPoint()))
    return;
  const QAction* pressed = std::exchange(pressedAction_, nullptr);
  const bool clicked = pressed && pressed == actionAt(event->position().toPoint());
  if (!clicked || !pressed->menu() || !choose(pressed))
    QMenu::mouseReleaseEvent(event);
}

/// A submenu opens when its key goes up, because the code that fills it may poll the keyboard.
/// Escape closes the menu also while Option is down.
void MenuPopup::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    return pressKey(Qt::Key_Escape);
  if (const auto next = stepForKey(event->key()); next && isLong_)
    return step(*next);
  if (!activeAction() && scrolledOutRow_)
    highlight(*scrolledOutRow_); // a row must be visible to be opened or chosen
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
