#include "platform/linux/scripts/LongRuns.h"

#include "platform/linux/scripts/RunNotice.h"

#include <QThread>
#include <QTimer>

namespace tavrel {

/// A thread that shows the notice once the patience is over.
class LongRuns::Watch {
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
  RunNotice notice_;
};

LongRuns::LongRuns(double patienceSeconds) : patience_(patienceSeconds) {}

LongRuns::~LongRuns() = default;

LongRuns::Run::Run(LongRuns& runs, const std::string& name)
    : runs_(runs), isOutermost_(!runs.watch_) {
  if (!isOutermost_)
    return;
  runs.stop_ = false;
  runs.watch_ = std::make_unique<Watch>(runs.patience_, name, runs.stop_);
}

LongRuns::Run::~Run() {
  if (isOutermost_)
    runs_.watch_.reset();
}

} // namespace tavrel
