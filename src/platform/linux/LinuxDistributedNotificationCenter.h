#pragma once

#include "platform/InProcessNotificationCenter.h"

#include <memory>

class QDBusMessage;

namespace tavrel {

class DBusSignalReceiver;

/// Notifications between the programs of a session, as the signal Posted (object, name, user
/// information: "ssa{sv}") of the interface qorvane.tavrel.DistributedNotifications at the path
/// /qorvane/tavrel/DistributedNotifications, from whatever sender. Messages of another signature
/// are ignored with a line on standard error.
class LinuxDistributedNotificationCenter final : public NotificationCenter {
public:
  LinuxDistributedNotificationCenter();
  ~LinuxDistributedNotificationCenter() override;

  [[nodiscard]] ObserverId addObserver(NotificationFilter filter,
                                       NotificationHandler handler) override {
    return center_.addObserver(std::move(filter), std::move(handler));
  }
  void removeObserver(ObserverId observer) override { center_.removeObserver(observer); }
  void post(const Notification& notification) override;

private:
  void receive(const QDBusMessage& message);

  InProcessNotificationCenter center_;
  std::unique_ptr<DBusSignalReceiver> receiver_;
};

} // namespace tavrel
