#include "platform/linux/tray/LinuxStatusBar.h"

#include "platform/linux/images/ImageIcon.h"
#include "platform/linux/menus/LinuxPresenter.h"
#include "platform/linux/tray/NotifierItem.h"
#include "platform/linux/tray/TrayIcon.h"
#include "platform/linux/tray/TrayLog.h"

#include <QCursor>
#include <QRect>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace tavrel {

namespace {
constexpr std::chrono::seconds panelStartTime{10}; ///< what a session's panel may take to come up

QRect pointer() {
  return {QCursor::pos(), QSize(0, 0)};
}

/// The item on the screen. It lives on while its own menu is open or what was chosen there is at
/// work: that may have removed the item.
class ShownItem final : public std::enable_shared_from_this<ShownItem> {
public:
  explicit ShownItem(LinuxPresenter& presenter) : presenter_(presenter) {}

  void start();
  void setIcon(const QIcon& icon);
  void setMenu(Menu* menu) { menu_ = menu; }
  /// Leaves the screen.
  void retire();

private:
  [[nodiscard]] std::function<void()> click(std::function<QRect(const ShownItem&)> anchor);
  void settle();
  void chooseArea();
  void enterTray();
  void complainWhenUnseen();
  void openMenu(const QRect& anchor);
  [[nodiscard]] NotifierHost host() const;

  LinuxPresenter& presenter_;
  Menu* menu_ = nullptr;
  QIcon icon_;
  QTimer settling_;
  QTimer complaint_;
  std::optional<TrayIcon> tray_;
  std::optional<NotifierItem> notifier_;
};

void ShownItem::start() {
  QObject::connect(&settling_, &QTimer::timeout, &settling_, [this] { chooseArea(); });
  QObject::connect(&complaint_, &QTimer::timeout, &complaint_, [this] { complainWhenUnseen(); });
  settling_.setSingleShot(true);
  complaint_.setSingleShot(true);
  complaint_.start(panelStartTime);
  notifier_.emplace(click([](const ShownItem&) { return pointer(); }), [this] { settle(); });
  settle();
}

void ShownItem::setIcon(const QIcon& icon) {
  icon_ = icon;
  if (notifier_)
    notifier_->setIcon(icon_);
  if (tray_)
    tray_->setIcon(icon_);
}

void ShownItem::retire() {
  menu_ = nullptr;
  settling_.stop();
  complaint_.stop();
  tray_.reset();
  notifier_.reset();
}

// A click is told from the event loop, where the item may be gone by then.
std::function<void()> ShownItem::click(std::function<QRect(const ShownItem&)> anchor) {
  return [weak = weak_from_this(), anchor = std::move(anchor)] {
    if (const auto self = weak.lock())
      self->openMenu(anchor(*self));
  };
}

NotifierHost ShownItem::host() const {
  return notifier_ ? notifier_->host() : NotifierHost::unknown;
}

/// Later, never inside the call that brought the news: it may come from the icon to be removed.
void ShownItem::settle() {
  settling_.start(0);
}

void ShownItem::chooseArea() {
  if (host() == NotifierHost::present)
    tray_.reset();
  else if (host() != NotifierHost::unknown && !tray_)
    enterTray();
}

void ShownItem::enterTray() {
  tray_.emplace(click([](const ShownItem& item) {
    return item.tray_ ? item.tray_->geometryUnderPointer() : pointer();
  }));
  tray_->setIcon(icon_);
}

void ShownItem::complainWhenUnseen() {
  if (host() != NotifierHost::present && !(tray_ && tray_->isEmbedded()))
    qCWarning(trayLog) << "no panel shows status icons: the icon appears when one is started";
}

void ShownItem::openMenu(const QRect& anchor) {
  if (menu_)
    presenter_.popUpBeside(*menu_, anchor, MenuFont::standard);
}

class LinuxStatusItem final : public StatusItem {
public:
  explicit LinuxStatusItem(LinuxPresenter& presenter)
      : shown_(std::make_shared<ShownItem>(presenter)) {
    shown_->start();
  }
  ~LinuxStatusItem() override { shown_->retire(); }
  LinuxStatusItem(const LinuxStatusItem&) = delete;
  LinuxStatusItem& operator=(const LinuxStatusItem&) = delete;

  void setImage(const Image& image) override { shown_->setIcon(iconFromImage(image)); }
  void setHighlightMode(bool) override {}
  void setMenu(Menu* menu) override { shown_->setMenu(menu); }

private:
  std::shared_ptr<ShownItem> shown_;
};
} // namespace

std::unique_ptr<StatusItem> LinuxStatusBar::addItem(double) {
  return std::make_unique<LinuxStatusItem>(presenter_);
}

} // namespace tavrel
