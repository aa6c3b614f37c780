#pragma once

#include "platform/common/InProcessNotificationCenter.h"

#include <deque>
#include <functional>
#include <memory>

class QDBusMessage;

namespace tavrel {

class DBusSignalReceiver;

/// Notifications between the programs of a session, as the signal Posted (object, name, user
/// information: "ssa{sv}") of the interface qorvane.tavrel.DistributedNotifications at the path
/// /qorvane/tavrel/DistributedNotifications, from whatever sender. An empty object is none.
/// Messages of another signature are ignored with a line on standard error. What arrives while a
/// handler runs an event loop of its own waits until that handler returns; what arrives while a
/// menu is open waits until it has closed, for handlers may change the menu.
class LinuxDistributedNotificationCenter final : public NotificationCenter {
public:
  /// The name, inside this process, of the connection that the signals use.
  static constexpr const char* connectionName = "tavrel.notifications";

  /// `isHeldBack` is asked before each delivery: while it answers true, notifications wait until
  /// `resume` is called.
  explicit LinuxDistributedNotificationCenter(std::function<bool()> isHeldBack = [] {
    return false;
  });
  ~LinuxDistributedNotificationCenter() override;

  [[nodiscard]] ObserverId addObserver(NotificationFilter filter,
                                       NotificationHandler handler) override {
    return center_.addObserver(std::move(filter), std::move(handler));
  }
  void removeObserver(ObserverId observer) override { center_.removeObserver(observer); }
  void post(const Notification& notification) override;

  /// Delivers to the observers of this process alone, after the notifications that wait.
  void deliver(Notification notification);

  /// Delivers what was held back, from the event loop.
  void resume();

private:
  void receive(const QDBusMessage& message);
  void deliverWaiting();

  std::function<bool()> isHeldBack_;
  InProcessNotificationCenter center_;
  std::deque<Notification> waiting_;
  bool delivering_ = false;
  std::unique_ptr<DBusSignalReceiver> receiver_;
};

} // namespace tavrel
