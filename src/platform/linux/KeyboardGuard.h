#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

struct xcb_connection_t;

namespace tavrel {

/// Lets the keyboard go, from a thread of its own, when the program is busy for too long while it
/// holds it, and again and again as long as it is: nobody is to sit before a dead keyboard because
/// an item takes its time.
class KeyboardGuard {
public:
  /// The connection that holds the keyboard, which must outlive this.
  explicit KeyboardGuard(xcb_connection_t& connection);
  ~KeyboardGuard();
  KeyboardGuard(const KeyboardGuard&) = delete;
  KeyboardGuard& operator=(const KeyboardGuard&) = delete;

  void start(std::chrono::milliseconds longest);
  /// Returns when the guard will not let go any more. False when it has done so.
  bool stop();

private:
  using Moment = std::chrono::steady_clock::time_point;
  void run();

  xcb_connection_t& connection_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::optional<Moment> deadline_;
  std::chrono::milliseconds longest_{};
  bool hasLetGo_ = false;
  bool isOver_ = false;
  std::thread thread_;
};

} // namespace tavrel
