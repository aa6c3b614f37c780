#include "platform/linux/menus/AccessibleLevel.h"

#include "platform/linux/menus/AccessibleEntry.h"

namespace tavrel {

namespace {
/// The entry whose submenu the level is; null for the outermost level.
QAccessibleInterface* openingEntry(const MenuPopup& level) {
  auto* outer = dynamic_cast<MenuPopup*>(level.parentWidget());
  QAccessibleInterface* shown = QAccessible::queryAccessibleInterface(outer);
  const auto row = outer ? outer->rowOfSubmenu(level) : std::nullopt;
  return shown && row ? shown->child(static_cast<int>(*row)) : nullptr;
}

QAccessibleInterface* makeLevel(const QString&, QObject* object) {
  auto* level = dynamic_cast<MenuPopup*>(object);
  return level ? new AccessibleLevel(*level) : nullptr;
}
} // namespace

void ensureAccessibleLevels() {
  static const bool installed = (QAccessible::installFactory(makeLevel), true);
  (void)installed;
}

AccessibleLevel::AccessibleLevel(MenuPopup& level)
    : QAccessibleWidget(&level, QAccessible::PopupMenu), level_(level) {}

AccessibleLevel::~AccessibleLevel() {
  for (const auto& [row, id] : entries_)
    QAccessible::deleteAccessibleInterface(id);
}

QAccessibleInterface* AccessibleLevel::parent() const {
  QAccessibleInterface* opening = openingEntry(level_);
  return opening ? opening : QAccessibleWidget::parent();
}

int AccessibleLevel::childCount() const {
  return static_cast<int>(level_.rows().size());
}

QAccessibleInterface* AccessibleLevel::child(int index) const {
  return index < 0 ? nullptr : entry(level_.rowOfToolkit(index));
}

QAccessibleInterface* AccessibleLevel::entry(std::size_t row) const {
  if (row >= level_.rows().size())
    return nullptr;
  QAccessible::Id& id = entries_[row];
  if (id == 0)
    id = QAccessible::registerAccessibleInterface(new AccessibleEntry(level_, row));
  return QAccessible::accessibleInterface(id);
}

QAccessibleInterface* AccessibleLevel::childAt(int x, int y) const {
  const auto row = level_.rowAt(level_.mapFromGlobal(QPoint(x, y)));
  return row ? entry(*row) : nullptr;
}

QAccessibleInterface* AccessibleLevel::focusChild() const {
  const auto row = level_.currentRow();
  return row ? entry(*row) : nullptr;
}

int AccessibleLevel::indexOfChild(const QAccessibleInterface* child) const {
  const auto* known = dynamic_cast<const AccessibleEntry*>(child);
  return known && known->parent() == this ? static_cast<int>(known->row()) : -1;
}

QString AccessibleLevel::text(QAccessible::Text what) const {
  QAccessibleInterface* opening = what == QAccessible::Name ? openingEntry(level_) : nullptr;
  return opening ? opening->text(what) : QAccessibleWidget::text(what);
}

} // namespace tavrel
