#pragma once

#include <QDBusPendingCall>
#include <QObject>
#include <QString>

#include <atomic>
#include <optional>

namespace tavrel {

/// The notification that offers to stop a script. It lives in a thread of its own, for the main one
/// waits for the script.
class StopScriptNotification final : public QObject {
  Q_OBJECT
public:
  StopScriptNotification(QString scriptName, std::atomic<bool>& stop)
      : name_(std::move(scriptName)), stop_(stop) {}

  /// Asks the notification service to show it; its answer is not waited for.
  void show();
  /// Takes it off the screen; waits for the service, but not for long.
  void close();

private Q_SLOTS:
  void onAction(unsigned id, const QString& action);

private:
  [[nodiscard]] unsigned answeredId() const;

  QString name_;
  std::atomic<bool>& stop_;
  std::optional<QDBusPendingCall> request_;
};

} // namespace tavrel
