#pragma once

#include "platform/linux/system/FileDescriptor.h"
#include "platform/linux/x11/clipboard/SystemClipboard.h"

#include <deque>
#include <future>
#include <mutex>
#include <thread>

namespace tavrel {

/// The thread that owns the connection for the clipboard, and works on it for others. It never
/// calls anyone back.
class ClipboardThread {
public:
  /// Null when there is no X server that tells of owners. `ownWindows`: see LateCopies.
  [[nodiscard]] static std::unique_ptr<ClipboardThread> create(xcb_window_t ownWindows);
  /// Hands what is served over to the clipboard manager first.
  ~ClipboardThread();
  ClipboardThread(const ClipboardThread&) = delete;
  ClipboardThread& operator=(const ClipboardThread&) = delete;

  /// Answers at once.
  [[nodiscard]] std::int64_t changeCount() const { return changeCount_; }

  /// Lets the thread do something with the clipboard, and waits for the result.
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
  bool isOver_ = false;
  std::thread thread_;
};

} // namespace tavrel
