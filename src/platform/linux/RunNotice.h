#pragma once

#include <QObject>
#include <QString>

#include <atomic>

namespace tavrel {

/// The notification that offers to stop a script. It lives in a thread of its own, for the main one
/// waits for the script.
class RunNotice final : public QObject {
  Q_OBJECT
public:
  RunNotice(QString scriptName, std::atomic<bool>& stop)
      : name_(std::move(scriptName)), stop_(stop) {}

  /// Asks the notification service to show it.
  void show();
  /// Takes it off the screen.
  void close();

private Q_SLOTS:
  void onAction(unsigned id, const QString& action);

private:
  QString name_;
  std::atomic<bool>& stop_;
  unsigned id_ = 0;
};

} // namespace tavrel
