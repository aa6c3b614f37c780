#pragma once

#include <QDBusMessage>
#include <QObject>

#include <functional>

namespace tavrel {

/// Hands each signal that the bus delivers to a function.
class DBusSignalReceiver final : public QObject {
  Q_OBJECT

public:
  explicit DBusSignalReceiver(std::function<void(const QDBusMessage&)> handler)
      : handler_(std::move(handler)) {}

  Q_SLOT void receive(const QDBusMessage& message) { handler_(message); }

private:
  std::function<void(const QDBusMessage&)> handler_;
};

} // namespace tavrel
