#pragma once

#include <QDBusPendingCall>
#include <QObject>
#include <QString>

#include <atomic>
#include <optional>

namespace tavrel {

/// The desktop notification that offers to stop a script. It lives in a thread of its own, for the
/// main thread waits for the script.
class StopScriptNotification final : public QObject {
  Q_OBJECT
public:
  StopScriptNotification(QString scriptName, std::atomic<bool>& shouldStop)
      : name_(std::move(scriptName)), shouldStop_(shouldStop) {}

  /// Asks the notification service to show it, without waiting for the answer.
  void show();
  /// Takes it off the screen; waits up to a second for the service.
  void close();

private Q_SLOTS:
  void onAction(unsigned id, const QString& action);

private:
  [[nodiscard]] unsigned notificationId() const; ///< 0 before the service answered

  QString name_;
  std::atomic<bool>& shouldStop_;
  std::optional<QDBusPendingCall> request_;
};

} // namespace tavrel
