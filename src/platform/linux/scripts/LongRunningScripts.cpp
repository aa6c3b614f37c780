#include "platform/linux/scripts/LongRunningScripts.h"

#include "platform/linux/scripts/StopScriptNotification.h"

#include <QThread>
#include <QTimer>

namespace tavrel {

/// A thread that shows the notice once the patience is over.
class LongRunningScripts::Watch {
public:
  Watch(double patience, const std::string& name, std::atomic<bool>& stop)
      : notice_(QString::fromStdString(name), stop) {
    notice_.moveToThread(&thread_);
    timer_.moveToThread(&thread_);
    timer_.setSingleShot(true);
    timer_.setInterval(static_cast<int>(patience * 1000));
    QObject::connect(&thread_, &QThread::started, &timer_, [this] { timer_.start(); });
    QObject::connect(&timer_, &QTimer::timeout, &notice_, [this] { notice_.show(); });
    QObject::connect(
        &thread_, &QThread::finished, &notice_,
        [this] {
          timer_.stop();
          notice_.close();
        },
        Qt::DirectConnection);
    thread_.start();
  }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;
  ~Watch() {
    thread_.quit();
    thread_.wait();
  }

private:
  QThread thread_;
  QTimer timer_;
  StopScriptNotification notice_;
};

LongRunningScripts::LongRunningScripts(double patienceSeconds) : patience_(patienceSeconds) {}

LongRunningScripts::~LongRunningScripts() = default;

LongRunningScripts::Run::Run(LongRunningScripts& runs, const std::string& name)
    : runs_(runs), isOutermost_(!runs.watch_) {
  if (!isOutermost_)
    return;
  runs.stop_ = false;
  runs.watch_ = std::make_unique<Watch>(runs.patience_, name, runs.stop_);
}

LongRunningScripts::Run::~Run() {
  if (isOutermost_)
    runs_.watch_.reset();
}

} // namespace tavrel
