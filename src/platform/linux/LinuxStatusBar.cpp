#include "platform/linux/LinuxStatusBar.h"

#include "platform/linux/ImageIcon.h"
#include "platform/linux/LinuxPresenter.h"
#include "platform/linux/NotifierItem.h"
#include "platform/linux/TrayIcon.h"
#include "platform/linux/TrayLog.h"

#include <QCursor>
#include <QRect>
#include <QTimer>

#include <chrono>
#include <optional>

namespace tavrel {

namespace {
constexpr std::chrono::seconds panelStartTime{10}; ///< what a session's panel may take to come up

QRect pointer() {
  return {QCursor::pos(), QSize(0, 0)};
}

class LinuxStatusItem final : public StatusItem {
public:
  explicit LinuxStatusItem(LinuxPresenter& presenter)
      : presenter_(presenter), notifier_([this] { openMenu(pointer()); }, [this] { settle(); }) {
    QObject::connect(&settling_, &QTimer::timeout, &settling_, [this] { chooseArea(); });
    QObject::connect(&complaint_, &QTimer::timeout, &complaint_, [this] { complainWhenUnseen(); });
    settling_.setSingleShot(true);
    complaint_.setSingleShot(true);
    complaint_.start(panelStartTime);
    settle();
  }

  void setImage(const Image& image) override {
    icon_ = iconFromImage(image);
    notifier_.setIcon(icon_);
    if (tray_)
      tray_->setIcon(icon_);
  }

  void setHighlightMode(bool) override {}
  void setMenu(Menu* menu) override { menu_ = menu; }

private:
  void settle();
  void chooseArea();
  void enterTray();
  void complainWhenUnseen();
  void openMenu(const QRect& anchor);

  LinuxPresenter& presenter_;
  Menu* menu_ = nullptr;
  QIcon icon_;
  QTimer settling_;
  QTimer complaint_;
  std::optional<TrayIcon> tray_;
  NotifierItem notifier_;
};

/// Later, never inside the call that brought the news: it may come from the icon to be removed.
void LinuxStatusItem::settle() {
  settling_.start(0);
}

void LinuxStatusItem::chooseArea() {
  const NotifierHost host = notifier_.host();
  if (host == NotifierHost::present)
    tray_.reset();
  else if (host != NotifierHost::unknown && !tray_)
    enterTray();
}

void LinuxStatusItem::enterTray() {
  tray_.emplace([this] { openMenu(tray_ ? tray_->geometryUnderPointer() : pointer()); });
  tray_->setIcon(icon_);
}

void LinuxStatusItem::complainWhenUnseen() {
  if (notifier_.host() != NotifierHost::present && !(tray_ && tray_->isEmbedded()))
    qCWarning(trayLog) << "no panel shows status icons: the icon appears when one is started";
}

void LinuxStatusItem::openMenu(const QRect& anchor) {
  if (menu_)
    presenter_.popUpBeside(*menu_, anchor, MenuFont::standard);
}
} // namespace

std::unique_ptr<StatusItem> LinuxStatusBar::addItem(double) {
  return std::make_unique<LinuxStatusItem>(presenter_);
}

} // namespace tavrel
