#pragma once

#include "platform/linux/dbus/BusInterface.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>

namespace tavrel {

/// Our object on the session bus, at `busPath`, with the interfaces that are offered at the moment.
/// Requests are answered one after another from the event loop; one that no interface has is
/// answered with an error.
class BusObject final : public QDBusVirtualObject {
public:
  BusObject();
  ~BusObject() override;

  /// Replaces an interface of the same name.
  void offer(BusInterface interface);
  void withdraw(const QString& name);

  [[nodiscard]] QString introspect(const QString& path) const override;
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
  [[nodiscard]] BusAnswer callMethod(const QDBusMessage& message) const;
  [[nodiscard]] BusAnswer answerProperties(const QDBusMessage& message) const;
  [[nodiscard]] BusAnswer allProperties(const QString& interface) const;

  std::vector<BusInterface> interfaces_;
};

} // namespace tavrel
