#pragma once

#include <QDBusConnection>
#include <QIcon>
#include <QObject>

#include <functional>

namespace tavrel {

class NotifierItemAdaptor;

/// Who could show an item: `noHost` is a watcher without a panel behind it.
enum class NotifierHost { unknown, noWatcher, noHost, present };

/// An item of the StatusNotifierItem protocol, under which a panel draws the icon. It registers
/// with the session's watcher whenever one appears.
class NotifierItem final : public QObject {
  Q_OBJECT
public:
  /// `clicked` is called from the event loop, when the host has its answer already; `hostChanged`
  /// whenever `host` may have changed.
  NotifierItem(std::function<void()> clicked, std::function<void()> hostChanged);
  ~NotifierItem() override;

  /// `present`: the watcher knows the item and a host is there to show it.
  [[nodiscard]] NotifierHost host() const { return host_; }
  void setIcon(const QIcon& icon);

private Q_SLOTS:
  void askForHost();
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
