#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QThread>

#include <atomic>

namespace tavrel {

/// A notification service on the test's own bus, in a thread of its own.
class FakeNotifications final : public QDBusVirtualObject {
public:
  FakeNotifications() {
    moveToThread(&thread_);
    thread_.start();
    QMetaObject::invokeMethod(
        this,
        [this] {
          bus().registerVirtualObject(path, this);
          bus().registerService(interface);
        },
        Qt::BlockingQueuedConnection);
  }
  ~FakeNotifications() override {
    bus().unregisterService(interface);
    bus().unregisterObject(path);
    thread_.quit();
    thread_.wait();
    QDBusConnection::disconnectFromBus(name);
  }

  std::atomic<int> shown = 0;
  std::atomic<int> closed = 0;
  std::atomic<bool> choosesStop = false;
  std::atomic<bool> hangs = false; ///< never answers
  QString title;                   ///< of the last one; read it after `shown` grew

  [[nodiscard]] QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    if (message.member() == "CloseNotification") {
      ++closed;
      return connection.send(message.createReply());
    }
    title = message.arguments().value(3).toString();
    if (!hangs)
      (void)connection.send(message.createReply(number));
    if (choosesStop && message.arguments().value(5).toStringList().value(0) == "stop")
      chooseStop(connection);
    ++shown;
    return true;
  }

private:
  static constexpr unsigned number = 7;
  static constexpr const char* name = "fake-notifications";
  static constexpr const char* path = "/org/freedesktop/Notifications";
  static constexpr const char* interface = "org.freedesktop.Notifications";

  static QDBusConnection bus() {
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
  }
  static void chooseStop(const QDBusConnection& connection) {
    QDBusMessage chosen = QDBusMessage::createSignal(path, interface, "ActionInvoked");
    chosen << number << QString("stop");
    (void)connection.send(chosen);
  }

  QThread thread_;
};

} // namespace tavrel
