#include "platform/linux/menus/MenuPopup.h"

#include "platform/linux/menus/EntryDescription.h"
#include "platform/linux/menus/MenuStyle.h"

#include <QAccessible>
#include <QActionEvent>
#include <QApplication>
#include <QCursor>
#include <QScopedValueRollback>
#include <QStyleOptionMenuItem>

#include <algorithm>
#include <chrono>
#include <utility>

namespace tavrel {

namespace {
constexpr std::chrono::milliseconds scrollPace{50}; ///< for each row, as the toolkit has it

/// Whether code of the toolkit runs for a level. Its numbers of entries count the actions of the
/// level, those of screen readers all rows.
bool toolkitIsCalling = false;

/// Many themes make disabled text too faint; half-way to the background it is legible.
QPalette legible(QPalette palette) {
  const QColor text = palette.color(QPalette::Active, QPalette::Text);
  const QColor ground = palette.color(QPalette::Active, QPalette::Base);
  const QColor between((text.red() + ground.red()) / 2, (text.green() + ground.green()) / 2,
                       (text.blue() + ground.blue()) / 2);
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, between);
  return palette;
}
} // namespace

MenuPopup::MenuPopup(MenuPopupOwner& owner, std::shared_ptr<Menu> menu, std::size_t longestPlain)
    : owner_(owner), menu_(std::move(menu)), longestPlain_(longestPlain) {
  setPalette(legible(QApplication::palette("QMenu")));
  setSeparatorsCollapsible(false);
  scrollTimer_.setInterval(scrollPace);
  connect(&scrollTimer_, &QTimer::timeout, this, [this] { scrollOn(); });
}

void MenuPopup::fill(OptionKey option) {
  rows_ = LevelRows(*menu_);
  isLong_ = rows_.size() > longestPlain_;
  firstRow_ = 0;
  scrolledOutRow_.reset();
  pointerAtOpening_ = QCursor::pos();
  setProperty(markWidthProperty, markWidth(rows_.columns()));
  setMinimumWidth(0);
  setContentsMargins(0, 0, 0, 0);
  isLong_ ? fillLong(option) : fillPlain(option);
}

void MenuPopup::fillPlain(OptionKey option) {
  rows_.show(option == OptionKey::up ? OptionKey::down : OptionKey::up);
  mirror(rows_.slice(0, rows_.size()), Slots::every);
  rows_.show(option);
  if (!rows_.hasAlternates())
    return;
  setMinimumWidth(sizeHint().width());
  mirror(rows_.slice(0, rows_.size()), Slots::changed);
}

void MenuPopup::fillLong(OptionKey option) {
  ensurePolished();
  rows_.show(option);
  metrics_ = measureLevel(rows_, *this);
  setMinimumWidth(metrics_.width);
  visibleRows_ = RowWindow();
  visibleRows_.setTops(rowTops(rows_, metrics_));
  const int room = screen()->availableGeometry().height() - 1 - metrics_.frame;
  visibleRows_.setView(std::min(visibleRows_.totalHeight(), room), metrics_.arrow);
  refreshVisibleRows(Slots::every);
}

void MenuPopup::showRowsFor(OptionKey option) {
  rows_.show(option);
  if (isLong_) {
    visibleRows_.setTops(rowTops(rows_, metrics_));
    refreshVisibleRows(Slots::changed);
  } else {
    mirror(rows_.slice(0, rows_.size()), Slots::changed);
  }
  announceNewName();
}

void MenuPopup::mirror(const Items& items, Slots slots) {
  {
    const QScopedValueRollback mirroring(isMirroring_, true);
    for (; slots_.size() > items.size(); slots_.pop_back())
      delete slots_.back().action;
    for (std::size_t i = 0; i < slots_.size(); ++i)
      if (slots == Slots::every || (slots_[i].item != items[i] && !hasOpenSubmenu(slots_[i])))
        setSlot(slots_[i], items[i]);
    while (slots_.size() < items.size())
      appendSlot(items[slots_.size()]);
  }
  layOut();
}

void MenuPopup::appendSlot(const std::shared_ptr<MenuItem>& item) {
  auto* action = new QAction(this);
  action->setData(static_cast<qulonglong>(slots_.size()));
  connect(action, &QAction::triggered, this, [this, action] { choose(action); });
  slots_.push_back({action, item});
  setSlot(slots_.back(), item);
  addAction(action);
}

/// Such a row does not change with Option, which is pressed for an entry of the submenu.
bool MenuPopup::hasOpenSubmenu(const Slot& slot) {
  const QMenu* submenu = slot.action->menu();
  return submenu && submenu->isVisible();
}

void MenuPopup::setSlot(Slot& slot, const std::shared_ptr<MenuItem>& item) {
  slot.item = item;
  showEntry(*slot.action, *item, rows_.columns(), fontMetrics(), submenuOf(*item));
}

/// QMenu lays all actions out anew whenever one changes. Changes made together are laid out once,
/// here: one by one, 1,000 of them take 24 s (Qt 6.4).
void MenuPopup::layOut() {
  if (slots_.empty())
    return;
  QActionEvent changed(QEvent::ActionChanged, slots_.front().action);
  QMenu::actionEvent(&changed);
}

void MenuPopup::actionEvent(QActionEvent* event) {
  if (!isMirroring_ || event->type() != QEvent::ActionChanged)
    QMenu::actionEvent(event);
}

MenuPopup* MenuPopup::submenuOf(const MenuItem& item) {
  if (!item.submenu || item.isSeparator)
    return nullptr;
  MenuPopup*& submenu = submenus_[item.submenu.get()];
  if (!submenu) {
    submenu = new MenuPopup(owner_, item.submenu, longestPlain_);
    submenu->setParent(this, submenu->windowFlags());
    submenu->setStyle(style());
    submenu->setFont(font());
    connect(submenu, &QMenu::aboutToShow, this, [this, submenu] { owner_.submenuOpens(*submenu); });
    connect(submenu, &QMenu::aboutToHide, this,
            [this, submenu] { owner_.submenuCloses(*submenu); });
  }
  return submenu;
}

/// Deletes submenus of rows that are not visible any more, but not those that have been open, which
/// QMenu may still refer to.
void MenuPopup::dropUnusedSubmenus() {
  if (submenus_.size() <= 2 * slots_.size())
    return;
  std::erase_if(submenus_, [this](const auto& known) {
    const MenuPopup* submenu = known.second;
    const bool inSight = std::any_of(slots_.begin(), slots_.end(), [&](const Slot& slot) {
      return slot.action->menu() == submenu;
    });
    if (inSight || submenu->testAttribute(Qt::WA_WState_Created))
      return false;
    delete submenu;
    return true;
  });
}

std::optional<std::size_t> MenuPopup::slotOf(std::size_t row) const {
  const bool inSight = row >= firstRow_ && row - firstRow_ < slots_.size();
  return inSight ? std::optional(row - firstRow_) : std::nullopt;
}

std::optional<std::size_t> MenuPopup::rowOf(const QAction* action) const {
  const auto slot = action ? action->data().toULongLong() : slots_.size();
  return slot < slots_.size() ? std::optional(firstRow_ + slot) : std::nullopt;
}

std::optional<std::size_t> MenuPopup::currentRow() const {
  const auto row = rowOf(activeAction());
  return row ? row : scrolledOutRow_;
}

/// QMenu opens the submenu of an action that is made active, so the submenu is taken away
/// meanwhile.
void MenuPopup::highlight(std::size_t row) {
  if (isLong_) {
    visibleRows_.reveal(row);
    refreshVisibleRows(Slots::changed);
  }
  const auto slot = slotOf(row);
  if (!slot)
    return;
  scrolledOutRow_.reset();
  QAction& action = *slots_[*slot].action;
  QMenu* submenu = action.menu();
  const QScopedValueRollback mirroring(isMirroring_, true);
  const QScopedValueRollback speaking(toolkitIsCalling, true);
  action.setMenu<QMenu*>(nullptr);
  setActiveAction(&action);
  action.setMenu(submenu);
}

std::string MenuPopup::description(std::size_t row) const {
  return entryDescription(*rows_.at(row),
                          [this](const std::string& text) { return owner_.localized(text); });
}

bool MenuPopup::choose(std::size_t row) {
  const std::shared_ptr<MenuItem> item = row < rows_.size() ? rows_.at(row) : nullptr;
  if (!item || !canBeChosen(*item))
    return false;
  owner_.entryChosen(item);
  return true;
}

void MenuPopup::openSubmenu(std::size_t row) {
  highlight(row);
  if (const auto slot = slotOf(row); slot && canBeOpened(*slots_[*slot].item))
    setActiveAction(slots_[*slot].action);
}

QRect MenuPopup::rowGeometry(std::size_t row) const {
  const auto slot = slotOf(row);
  return slot ? actionGeometry(slots_[*slot].action) & rect() : QRect();
}

MenuPopup* MenuPopup::openSubmenuOf(std::size_t row) const {
  const auto slot = slotOf(row);
  return slot && hasOpenSubmenu(slots_[*slot])
             ? dynamic_cast<MenuPopup*>(slots_[*slot].action->menu())
             : nullptr;
}

std::optional<std::size_t> MenuPopup::rowOfSubmenu(const MenuPopup& submenu) const {
  const auto slot = std::find_if(slots_.begin(), slots_.end(),
                                 [&](const Slot& each) { return each.action->menu() == &submenu; });
  return slot == slots_.end() ? std::nullopt : rowOf(slot->action);
}

std::size_t MenuPopup::rowOfToolkit(int number) const {
  return static_cast<std::size_t>(number) + (toolkitIsCalling ? firstRow_ : 0);
}

void MenuPopup::announceNewName() const {
  const auto row = currentRow();
  if (!row || !QAccessible::isActive())
    return;
  QAccessibleEvent renamed(const_cast<MenuPopup*>(this), QAccessible::NameChanged);
  renamed.setChild(static_cast<int>(*row));
  QAccessible::updateAccessibility(&renamed);
}

bool MenuPopup::event(QEvent* event) {
  const QScopedValueRollback speaking(toolkitIsCalling, true);
  return QMenu::event(event);
}

} // namespace tavrel
