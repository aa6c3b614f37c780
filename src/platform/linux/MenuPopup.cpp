#include "platform/linux/MenuPopup.h"

#include "platform/linux/MenuEntryText.h"
#include "platform/linux/MenuStyle.h"

#include <QActionEvent>
#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace tavrel {

namespace {
constexpr int widestTitle = 64; ///< in average characters

/// What an empty menu shows: without it, nobody would see that the menu is open.
const std::shared_ptr<MenuItem>& blankEntry() {
  static const auto blank = [] {
    auto item = std::make_shared<MenuItem>();
    item->enabled = false;
    return item;
  }();
  return blank;
}

std::vector<std::shared_ptr<MenuItem>> shownItems(const Menu& menu, OptionKey option) {
  std::vector<std::shared_ptr<MenuItem>> shown;
  auto next = menu.items.begin();
  for (const MenuItem* row : visibleRows(menu, option)) {
    next =
        std::find_if(next, menu.items.end(), [&](const auto& item) { return item.get() == row; });
    shown.push_back(*next);
  }
  if (shown.empty())
    shown.push_back(blankEntry());
  return shown;
}

/// The same for both states of the Option key, so that nothing moves as it goes down.
MarkColumns columnsOf(const Menu& menu) {
  MarkColumns columns;
  for (const auto& item : menu.items) {
    columns.tick |= !item->hidden && item->state == MenuItemState::on;
    columns.image |= !item->hidden && item->image.has_value();
  }
  return columns;
}

/// Themes often grey disabled text out of sight; half-way to the background it can be read.
QPalette legible(QPalette palette) {
  const QColor text = palette.color(QPalette::Active, QPalette::Text);
  const QColor ground = palette.color(QPalette::Active, QPalette::Base);
  const QColor between((text.red() + ground.red()) / 2, (text.green() + ground.green()) / 2,
                       (text.blue() + ground.blue()) / 2);
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, between);
  return palette;
}

bool canBeOpened(const MenuItem& item) {
  return item.enabled && item.submenu;
}

bool canBeChosen(const MenuItem& item) {
  return item.enabled && !item.isSeparator && item.action != MenuAction::none;
}
} // namespace

MenuPopup::MenuPopup(MenuPopupOwner& owner, std::shared_ptr<Menu> menu)
    : owner_(owner), menu_(std::move(menu)) {
  setPalette(legible(QApplication::palette("QMenu")));
}

void MenuPopup::fill(OptionKey option) {
  const Items shown = shownItems(*menu_, option);
  const Items others =
      shownItems(*menu_, option == OptionKey::up ? OptionKey::down : OptionKey::up);
  columns_ = columnsOf(*menu_);
  setProperty(markWidthProperty, markWidth(columns_));
  setMinimumWidth(0);
  mirror(others, Rows::every);
  if (others == shown)
    return;
  setMinimumWidth(sizeHint().width());
  mirror(shown, Rows::changed);
}

void MenuPopup::follow(OptionKey option) {
  mirror(shownItems(*menu_, option), Rows::changed);
}

void MenuPopup::mirror(const Items& items, Rows rows) {
  {
    const QScopedValueRollback mirroring(mirroring_, true);
    for (; rows_.size() > items.size(); rows_.pop_back())
      delete rows_.back().action;
    for (std::size_t i = 0; i < rows_.size(); ++i)
      if (rows == Rows::every || (rows_[i].item != items[i] && !hasOpenSubmenu(rows_[i])))
        setRow(rows_[i], items[i]);
    while (rows_.size() < items.size())
      appendRow(items[rows_.size()]);
  }
  layOut();
}

void MenuPopup::appendRow(const std::shared_ptr<MenuItem>& item) {
  auto* action = new QAction(this);
  action->setData(static_cast<qulonglong>(rows_.size()));
  connect(action, &QAction::triggered, this, [this, action] { choose(action); });
  rows_.push_back({action, item});
  setRow(rows_.back(), item);
  addAction(action);
}

/// Such a row stays as it is: Option goes down for an entry further in.
bool MenuPopup::hasOpenSubmenu(const Row& row) {
  const QMenu* submenu = row.action->menu();
  return submenu && submenu->isVisible();
}

void MenuPopup::setRow(Row& row, const std::shared_ptr<MenuItem>& item) {
  row.item = item;
  QAction& action = *row.action;
  const bool ticked = item->state == MenuItemState::on;
  const int widest = widestTitle * fontMetrics().averageCharWidth();
  action.setSeparator(item->isSeparator);
  action.setText(actionText(*item, fontMetrics(), widest));
  action.setIcon(markIcon(columns_, ticked ? Tick::present : Tick::absent, item->image));
  action.setCheckable(ticked);
  action.setChecked(ticked);
  action.setMenu(item->isSeparator ? nullptr : submenuOf(*item));
  action.setEnabled(item->isSeparator || canBeOpened(*item) || canBeChosen(*item));
}

/// One by one, each change would lay out the whole menu anew: time in the square of its length.
void MenuPopup::layOut() {
  if (rows_.empty())
    return;
  QActionEvent changed(QEvent::ActionChanged, rows_.front().action);
  QMenu::actionEvent(&changed);
}

void MenuPopup::actionEvent(QActionEvent* event) {
  if (!mirroring_ || event->type() != QEvent::ActionChanged)
    QMenu::actionEvent(event);
}

MenuPopup* MenuPopup::submenuOf(const MenuItem& item) {
  if (!item.submenu)
    return nullptr;
  MenuPopup*& submenu = submenus_[item.submenu.get()];
  if (!submenu) {
    submenu = new MenuPopup(owner_, item.submenu);
    submenu->setParent(this, submenu->windowFlags());
    submenu->setStyle(style());
    submenu->setFont(font());
    connect(submenu, &QMenu::aboutToShow, this, [this, submenu] { owner_.submenuOpens(*submenu); });
    connect(submenu, &QMenu::aboutToHide, this,
            [this, submenu] { owner_.submenuCloses(*submenu); });
  }
  return submenu;
}

std::shared_ptr<MenuItem> MenuPopup::itemOf(const QAction* action) const {
  const auto row = action ? action->data().toULongLong() : rows_.size();
  return row < rows_.size() ? rows_[row].item : nullptr;
}

bool MenuPopup::choose(const QAction* action) {
  const std::shared_ptr<MenuItem> item = itemOf(action);
  if (!item || !canBeChosen(*item))
    return false;
  owner_.entryChosen(item);
  return true;
}

void MenuPopup::mousePressEvent(QMouseEvent* event) {
  pressed_ = actionAt(event->position().toPoint());
  QMenu::mousePressEvent(event);
}

/// The toolkit has no entry that opens a submenu and can be chosen all the same, as folders are.
void MenuPopup::mouseReleaseEvent(QMouseEvent* event) {
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
  return key == inwards || key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace tavrel
