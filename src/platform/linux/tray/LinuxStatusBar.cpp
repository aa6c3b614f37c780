#include "platform/linux/tray/LinuxStatusBar.h"

#include "platform/linux/images/ImageIcon.h"
#include "platform/linux/menus/LinuxPresenter.h"
#include "platform/linux/tray/NotifierItem.h"
#include "platform/linux/tray/TrayIcon.h"

#include <QCursor>
#include <QRect>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace tavrel {

namespace {
constexpr std::chrono::seconds panelStartTimeout{10}; ///< the panel of a session may start after us

QRect pointer() {
  return {QCursor::pos(), QSize(0, 0)};
}

/// The item on the screen. A shared pointer keeps it alive while its menu is open or the entry
/// chosen there is carried out, which may remove the item.
class ShownItem final : public std::enable_shared_from_this<ShownItem> {
public:
  explicit ShownItem(LinuxPresenter& presenter) : presenter_(presenter) {}

  void start();
  void setIcon(const QIcon& icon);
  void setMenu(Menu* menu) { menu_ = menu; }
  /// Removes the icon from the screen.
  void retire();

private:
  [[nodiscard]] std::function<void()> click(std::function<QRect(const ShownItem&)> anchor);
  void chooseAreaLater();
  void chooseArea();
  void enterTray();
  void warnWhenUnseen();
  void openMenu(const QRect& anchor);
  [[nodiscard]] NotifierHost host() const;

  LinuxPresenter& presenter_;
  Menu* menu_ = nullptr;
  QIcon icon_;
  QTimer chooseTimer_;
  QTimer unseenTimer_;
  std::optional<TrayIcon> tray_;
  std::optional<NotifierItem> notifier_;
};

void ShownItem::start() {
  QObject::connect(&chooseTimer_, &QTimer::timeout, &chooseTimer_, [this] { chooseArea(); });
  QObject::connect(&unseenTimer_, &QTimer::timeout, &unseenTimer_, [this] { warnWhenUnseen(); });
  chooseTimer_.setSingleShot(true);
  unseenTimer_.setSingleShot(true);
  unseenTimer_.start(panelStartTimeout);
  notifier_.emplace(click([](const ShownItem&) { return pointer(); }),
                    [this] { chooseAreaLater(); });
  chooseAreaLater();
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
  chooseTimer_.stop();
  unseenTimer_.stop();
  tray_.reset();
  notifier_.reset();
}

// Clicks are reported by the event loop, when the item may be gone already.
std::function<void()> ShownItem::click(std::function<QRect(const ShownItem&)> anchor) {
  return [weak = weak_from_this(), anchor = std::move(anchor)] {
    if (const auto self = weak.lock())
      self->openMenu(anchor(*self));
  };
}

NotifierHost ShownItem::host() const {
  return notifier_ ? notifier_->host() : NotifierHost::unknown;
}

/// Not at once: the caller may be the icon that has to be removed.
void ShownItem::chooseAreaLater() {
  chooseTimer_.start(0);
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

void ShownItem::warnWhenUnseen() {
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
