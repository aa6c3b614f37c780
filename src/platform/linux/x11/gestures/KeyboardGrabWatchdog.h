#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

struct xcb_connection_t;

namespace tavrel {

/// Releases the keyboard, from a thread of its own, when the event loop has not run for a quarter
/// of a second, and once more after each further quarter: an item that blocks the main thread must
/// not leave the user with a dead keyboard.
class KeyboardGrabWatchdog {
public:
  /// The connection that grabs the keyboard; it must outlive this.
  explicit KeyboardGrabWatchdog(xcb_connection_t& connection);
  ~KeyboardGrabWatchdog();
  KeyboardGrabWatchdog(const KeyboardGrabWatchdog&) = delete;
  KeyboardGrabWatchdog& operator=(const KeyboardGrabWatchdog&) = delete;

  /// The event loop handles events from now on, or waits for them.
  void becomesBusy();
  void becomesIdle();
  /// An open menu keeps the keyboard however long the event loop is busy. Once this has returned
  /// the thread heeds it.
  void setMenuIsOpen(bool isOpen);

private:
  using TimePoint = std::chrono::steady_clock::time_point;
  void run();

  xcb_connection_t& connection_;
  std::mutex mutex_;
  std::condition_variable wakeUp_;
  std::optional<TimePoint> deadline_; ///< nothing while the event loop is idle
  bool hasDeadline_ = false;          ///< the thread waits for a deadline and needs no wake-up
  bool menuIsOpen_ = false;
  bool isStopped_ = false;
  std::thread thread_;
};

} // namespace tavrel
