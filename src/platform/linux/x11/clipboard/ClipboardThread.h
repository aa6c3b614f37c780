#pragma once

#include "platform/linux/system/FileDescriptor.h"
#include "platform/linux/x11/clipboard/SystemClipboard.h"

#include <deque>
#include <future>
#include <mutex>
#include <thread>

namespace tavrel {

/// The thread that owns the X connection for the clipboard. It serves other programs, and runs what
/// other threads `call`. It never calls back.
class ClipboardThread {
public:
  /// Null without an X server that has XFixes. `ownWindows`: see LateCopies.
  [[nodiscard]] static std::unique_ptr<ClipboardThread> create(xcb_window_t ownWindows);
  /// Has the clipboard manager save what is served first.
  ~ClipboardThread();
  ClipboardThread(const ClipboardThread&) = delete;
  ClipboardThread& operator=(const ClipboardThread&) = delete;

  /// Does not wait for the thread.
  [[nodiscard]] std::int64_t changeCount() const { return changeCount_; }

  /// Runs `work` on the thread, and waits for its result.
  template <typename Work> auto call(Work work) {
    std::packaged_task<std::invoke_result_t<Work, SystemClipboard&>()> task(
        [&] { return work(clipboard_); });
    auto result = task.get_future();
    post([&task] { task(); });
    return result.get();
  }

private:
  ClipboardThread(std::unique_ptr<SelectionConnection> connection, xcb_window_t ownWindows);
  void post(std::function<void()> job);
  [[nodiscard]] bool runJobs();
  void run();

  std::unique_ptr<SelectionConnection> connection_;
  std::atomic<std::int64_t> changeCount_ = 0;
  SystemClipboard clipboard_;
  FileDescriptor wakeUp_;
  std::mutex mutex_;
  std::deque<std::function<void()>> jobs_;
  bool isStopped_ = false;
  std::thread thread_;
};

} // namespace tavrel
