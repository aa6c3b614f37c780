#include "platform/linux/scripts/LongRunningScripts.h"

#include "platform/linux/scripts/StopScriptNotification.h"

#include <QThread>
#include <QTimer>

namespace tavrel {

/// A thread that shows the notification after a delay, for the main thread is busy with the script.
class LongRunningScripts::NotificationThread {
public:
  NotificationThread(double delaySeconds, const std::string& name, std::atomic<bool>& shouldStop)
      : notification_(QString::fromStdString(name), shouldStop) {
    notification_.moveToThread(&thread_);
    timer_.moveToThread(&thread_);
    timer_.setSingleShot(true);
    timer_.setInterval(static_cast<int>(delaySeconds * 1000));
    QObject::connect(&thread_, &QThread::started, &timer_, [this] { timer_.start(); });
    QObject::connect(&timer_, &QTimer::timeout, &notification_, [this] { notification_.show(); });
    QObject::connect(
        &thread_, &QThread::finished, &notification_,
        [this] {
          timer_.stop();
          notification_.close();
        },
        Qt::DirectConnection);
    thread_.start();
  }
  NotificationThread(const NotificationThread&) = delete;
  NotificationThread& operator=(const NotificationThread&) = delete;
  ~NotificationThread() {
    thread_.quit();
    thread_.wait();
  }

private:
  QThread thread_;
  QTimer timer_;
  StopScriptNotification notification_;
};

LongRunningScripts::LongRunningScripts(double secondsUntilNotification)
    : secondsUntilNotification_(secondsUntilNotification) {}

LongRunningScripts::~LongRunningScripts() = default;

LongRunningScripts::RunningScript::RunningScript(LongRunningScripts& scripts,
                                                 const std::string& name)
    : scripts_(scripts), isOutermost_(!scripts.notificationThread_) {
  if (!isOutermost_)
    return;
  scripts.shouldStop_ = false;
  scripts.notificationThread_ = std::make_unique<NotificationThread>(
      scripts.secondsUntilNotification_, name, scripts.shouldStop_);
}

LongRunningScripts::RunningScript::~RunningScript() {
  if (isOutermost_)
    scripts_.notificationThread_.reset();
}

} // namespace tavrel
