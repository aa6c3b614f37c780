#include "platform/linux/x11/clipboard/ClipboardThread.h"

#include <sys/eventfd.h>

namespace tavrel {

std::unique_ptr<ClipboardThread> ClipboardThread::create(xcb_window_t ownWindows) {
  auto connection = SelectionConnection::create();
  return std::unique_ptr<ClipboardThread>(
      connection ? new ClipboardThread(std::move(connection), ownWindows) : nullptr);
}

ClipboardThread::ClipboardThread(std::unique_ptr<SelectionConnection> connection,
                                 xcb_window_t ownWindows)
    : connection_(std::move(connection)), clipboard_(*connection_, ownWindows, changeCount_),
      wakeUp_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), thread_([this] { run(); }) {}

ClipboardThread::~ClipboardThread() {
  post([this] {
    clipboard_.saveToManager();
    isStopped_ = true;
  });
  thread_.join();
}

void ClipboardThread::post(std::function<void()> job) {
  {
    const std::scoped_lock lock(mutex_);
    jobs_.push_back(std::move(job));
  }
  ::eventfd_write(wakeUp_.get(), 1);
}

// Events that have arrived are handled before each job, so that it sees the clipboard as it is now.
bool ClipboardThread::runJobs() {
  std::deque<std::function<void()>> jobs;
  {
    const std::scoped_lock lock(mutex_);
    jobs.swap(jobs_);
  }
  for (const auto& job : jobs) {
    connection_->drain();
    clipboard_.doDueWork();
    job();
  }
  return !jobs.empty();
}

void ClipboardThread::run() {
  while (!isStopped_) {
    connection_->drain();
    clipboard_.doDueWork();
    connection_->drain(); // events may have come along with the replies to what it requested
    eventfd_t count = 0;
    ::eventfd_read(wakeUp_.get(), &count);
    if (!runJobs())
      connection_->sleep(wakeUp_.get(), clipboard_.nextDueTime());
  }
}

} // namespace tavrel
