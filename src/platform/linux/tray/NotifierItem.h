#pragma once

#include <QDBusConnection>
#include <QIcon>
#include <QLoggingCategory>
#include <QObject>

#include <functional>

namespace tavrel {

class NotifierItemAdaptor;

/// "tavrel.tray", for both kinds of icon.
Q_DECLARE_LOGGING_CATEGORY(trayLog)

/// Whether a panel shows items: it needs a watcher on the session bus, and a host (the panel)
/// registered there. `unknown` until the bus has answered.
enum class NotifierHost { unknown, noWatcher, noHost, present };

/// An item of the StatusNotifierItem protocol, where the panel draws the icon. It registers with
/// the session's watcher (org.kde.StatusNotifierWatcher) whenever one appears.
class NotifierItem final : public QObject {
  Q_OBJECT
public:
  /// `clicked` is called from the event loop, after the host's call has been answered;
  /// `hostChanged` whenever `host` may have changed.
  NotifierItem(std::function<void()> clicked, std::function<void()> hostChanged);
  ~NotifierItem() override;

  /// `present`: the watcher knows the item and a host is there to show it.
  [[nodiscard]] NotifierHost host() const { return host_; }
  void setIcon(const QIcon& icon);

private Q_SLOTS:
  void requestHost();
  void watcherChanged(const QString& name, const QString& before, const QString& now);

private:
  void enterBus();
  void registerItem();
  void setHost(NotifierHost host);

  std::function<void()> hostChanged_;
  QString name_;
  QDBusConnection bus_;
  NotifierItemAdaptor* adaptor_;
  NotifierHost host_ = NotifierHost::unknown;
};

} // namespace tavrel
