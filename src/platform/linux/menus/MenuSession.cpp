#include "platform/linux/menus/MenuSession.h"

#include "platform/linux/x11/server/QtConnection.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <utility>

namespace tavrel {

namespace {
constexpr std::chrono::milliseconds grabRetryInterval{30};
constexpr double smallFontShare = 11.0 / 13.0; ///< small system font to menu font

OptionKey optionIn(Qt::KeyboardModifiers modifiers) {
  return modifiers.testFlag(Qt::AltModifier) ? OptionKey::down : OptionKey::up;
}

bool isModifierKey(int key) {
  return (key >= Qt::Key_Shift && key <= Qt::Key_Alt) || key == Qt::Key_AltGr ||
         (key >= Qt::Key_Super_L && key <= Qt::Key_Hyper_R);
}

KeyDirection directionOf(const QKeyEvent& key) {
  return key.type() == QEvent::KeyPress ? KeyDirection::down : KeyDirection::up;
}

QFont menuFont(MenuFont size) {
  QFont font = QApplication::font("QMenu");
  if (size == MenuFont::small && font.pointSizeF() > 0)
    font.setPointSizeF(font.pointSizeF() * smallFontShare);
  else if (size == MenuFont::small)
    font.setPixelSize(static_cast<int>(font.pixelSize() * smallFontShare));
  return font;
}

std::shared_ptr<Menu> unowned(Menu& menu) {
  return {std::shared_ptr<Menu>(), &menu};
}

/// Below the anchor where there is room, else above it, else as low as fits on the screen.
QPoint placeFor(QSize menu, const QRect& anchor) {
  const QScreen* screen = QGuiApplication::screenAt(anchor.topLeft());
  const QRect area = screen ? screen->availableGeometry() : anchor;
  const int above = anchor.top() - menu.height();
  const int lowest = area.bottom() + 1 - menu.height();
  const int rightmost = area.right() + 1 - menu.width();
  const int below = anchor.top() + anchor.height();
  return {std::max(area.left(), std::min(anchor.left(), rightmost)),
          below <= lowest ? below : std::max(area.top(), above >= area.top() ? above : lowest)};
}

void notifyClosed(Menu& menu) {
  if (menu.delegate)
    menu.delegate->menuDidClose(menu);
}
} // namespace

MenuSession::MenuSession(Menu& menu, MenuFont font, Localize localize, std::size_t longestPlain)
    : localize_(std::move(localize)), root_(*this, unowned(menu), longestPlain) {
  root_.setStyle(&style_);
  root_.setFont(menuFont(font));
  grabTimer_.setInterval(grabRetryInterval);
  connect(&grabTimer_, &QTimer::timeout, this, &MenuSession::grabInput);
}

MenuSession::~MenuSession() = default;

void MenuSession::run(const QRect& anchor) {
  keyForwarder_.emplace([this] {
    const QWindow* window = root_.isVisible() ? root_.windowHandle() : nullptr;
    return window ? static_cast<std::uint32_t>(window->winId()) : 0;
  });
  option_ = optionIn(QGuiApplication::queryKeyboardModifiers());
  root_.setScreen(QGuiApplication::screenAt(anchor.topLeft()));
  openLevel(root_);
  keyForwarder_->grabAgain(); // a capture of the selection has released it meanwhile
  setOption(optionIn(QGuiApplication::queryKeyboardModifiers()));
  qApp->installEventFilter(this);
  grabTimer_.start();
  root_.exec(placeFor(root_.sizeHint(), anchor));
  grabTimer_.stop();
  qApp->removeEventFilter(this);
  waitForServer();
  keyForwarder_.reset();
}

void MenuSession::openLevel(MenuPopup& level) {
  levels_.push_back(&level);
  Menu& menu = level.menu();
  if (menu.delegate)
    menu.delegate->menuWillOpen(menu);
  if (menu.delegate)
    menu.delegate->menuNeedsUpdate(menu);
  level.fill(option_);
}

void MenuSession::submenuOpens(MenuPopup& level) {
  notifyClosedLevels();
  openLevel(level);
}

/// Submenus close before it is known whether an entry was chosen, and delegates are notified after
/// the entry has been carried out: so they wait for the next turn of the event loop.
void MenuSession::submenuCloses(MenuPopup& level) {
  if (std::erase(levels_, &level) == 0)
    return;
  closedMenus_.push_back(level.sharedMenu());
  QTimer::singleShot(0, this, [this] {
    if (!root_.isVisible() || chosen_)
      return;
    notifyClosedLevels();
    applyOption();
  });
}

void MenuSession::notifyClosedLevels() {
  for (const auto& menu : std::exchange(closedMenus_, {}))
    notifyClosed(*menu);
}

void MenuSession::entryChosen(std::shared_ptr<MenuItem> item) {
  if (!chosen_)
    chosen_ = std::move(item);
  root_.close();
}

void MenuSession::finish(MenuActionTarget* target) {
  if (chosen_ && target)
    target->menuItemChosen(*chosen_);
  notifyClosedLevels();
  notifyClosed(root_.menu());
}

bool MenuSession::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::MouseMove)
    setOption(optionIn(static_cast<QMouseEvent*>(event)->modifiers()));
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
    return false;
  const auto& key = static_cast<QKeyEvent&>(*event);
  if (!root_.isVisible()) {
    keyForwarder_->keepKey({key.nativeScanCode(), directionOf(key),
                            static_cast<std::uint32_t>(key.timestamp()), key.nativeModifiers()});
    return true;
  }
  setOption(optionIn(QGuiApplication::queryKeyboardModifiers()));
  return isModifierKey(key.key()) || (event->type() == QEvent::KeyPress && typeAhead(key));
}

bool MenuSession::typeAhead(const QKeyEvent& key) {
  auto* level = dynamic_cast<MenuPopup*>(QApplication::activePopupWidget());
  if (!level)
    return false;
  const TypeAhead::Answer answer = typeAhead_.typeKey(key, level->rows(), level->currentRow());
  if (answer.row)
    level->highlight(*answer.row);
  return answer.taken;
}

void MenuSession::setOption(OptionKey option) {
  if (std::exchange(option_, option) != option)
    applyOption();
}

void MenuSession::applyOption() {
  for (MenuPopup* level : levels_)
    level->showRowsFor(option_);
}

/// While another program has keyboard and pointer grabbed, for a menu of its own, the grabs fail;
/// the timer tries again.
void MenuSession::grabInput() {
  QWindow* window = root_.windowHandle();
  if (!window || !root_.isVisible())
    return;
  const bool buttonsUp = !pointerButtonIsDown();
  const bool keyboard = window->setKeyboardGrabEnabled(true);
  window->setMouseGrabEnabled(true);
  if (keyboard && buttonsUp) {
    grabTimer_.stop();
    setOption(optionIn(QGuiApplication::queryKeyboardModifiers()));
  }
}

} // namespace tavrel
