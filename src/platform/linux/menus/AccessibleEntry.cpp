#include "platform/linux/menus/AccessibleEntry.h"

#include "platform/linux/menus/MenuEntryText.h"

#include <QFontMetrics>
#include <QWindow>

#include <limits>

namespace tavrel {

namespace {
/// Titles are shortened on the screen; screen readers get all of them.
QString spokenTitle(const MenuItem& item, const QFontMetrics& metrics) {
  return entryTitle(item, metrics, std::numeric_limits<int>::max()).trimmed();
}
} // namespace

AccessibleEntry::AccessibleEntry(MenuPopup& level, std::size_t row) : level_(&level), row_(row) {}

bool AccessibleEntry::isValid() const {
  return level_ && row_ < level_->rows().size();
}

QWindow* AccessibleEntry::window() const {
  return level_ ? level_->windowHandle() : nullptr;
}

QAccessibleInterface* AccessibleEntry::parent() const {
  return QAccessible::queryAccessibleInterface(level_);
}

QAccessibleInterface* AccessibleEntry::child(int index) const {
  return isValid() && index == 0
             ? QAccessible::queryAccessibleInterface(level_->openSubmenuOf(row_))
             : nullptr;
}

int AccessibleEntry::childCount() const {
  return isValid() && level_->openSubmenuOf(row_) ? 1 : 0;
}

int AccessibleEntry::indexOfChild(const QAccessibleInterface* child) const {
  return child && child == this->child(0) ? 0 : -1;
}

QString AccessibleEntry::text(QAccessible::Text what) const {
  if (!isValid())
    return {};
  const MenuItem& item = *level_->rows().at(row_);
  switch (what) {
  case QAccessible::Name:
    return spokenTitle(item, level_->fontMetrics());
  case QAccessible::Description:
    return QString::fromStdString(level_->description(row_));
  case QAccessible::Accelerator:
    return entryShortcut(item);
  default:
    return {};
  }
}

QRect AccessibleEntry::rect() const {
  const QRect area = isValid() ? level_->rowGeometry(row_) : QRect();
  return area.isEmpty() ? area : QRect(level_->mapToGlobal(area.topLeft()), area.size());
}

QAccessible::Role AccessibleEntry::role() const {
  const bool line = isValid() && level_->rows().at(row_)->isSeparator;
  return line ? QAccessible::Separator : QAccessible::MenuItem;
}

QAccessible::State AccessibleEntry::state() const {
  QAccessible::State state;
  state.invalid = !isValid();
  if (state.invalid || !level_->isVisible()) {
    state.invisible = true;
    return state;
  }
  const MenuItem& item = *level_->rows().at(row_);
  state.disabled = !level_->rows().canBeUsed(row_);
  state.offscreen = level_->rowGeometry(row_).isEmpty();
  state.checkable = item.state == MenuItemState::on;
  state.checked = item.state == MenuItemState::on;
  state.hasPopup = canBeOpened(item);
  state.expandable = state.hasPopup;
  state.expanded = level_->openSubmenuOf(row_) != nullptr;
  state.focusable = !item.isSeparator;
  state.focused = level_->currentRow() == row_;
  return state;
}

void* AccessibleEntry::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                              : nullptr;
}

QStringList AccessibleEntry::actionNames() const {
  QStringList names;
  if (isValid() && canBeChosen(*level_->rows().at(row_)))
    names += pressAction();
  if (isValid() && canBeOpened(*level_->rows().at(row_)))
    names += showMenuAction();
  return names;
}

void AccessibleEntry::doAction(const QString& name) {
  if (!isValid() || !level_->isVisible())
    return;
  if (name == showMenuAction())
    level_->openSubmenu(row_);
  else if (name == pressAction())
    level_->choose(row_);
}

QStringList AccessibleEntry::keyBindingsForAction(const QString& name) const {
  const QString keys = name == pressAction() ? text(QAccessible::Accelerator) : QString();
  return keys.isEmpty() ? QStringList() : QStringList(keys);
}

} // namespace tavrel
