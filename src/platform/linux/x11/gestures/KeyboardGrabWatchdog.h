#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

struct xcb_connection_t;

namespace tavrel {

/// Lets the keyboard go, from a thread of its own, when the program has been busy for a quarter of
/// a second without a look at its events, and again and again as long as it is: nobody is to sit
/// before a dead keyboard because a hot key's item takes its time.
class KeyboardGrabWatchdog {
public:
  /// The connection that holds the keyboard, which must outlive this.
  explicit KeyboardGrabWatchdog(xcb_connection_t& connection);
  ~KeyboardGrabWatchdog();
  KeyboardGrabWatchdog(const KeyboardGrabWatchdog&) = delete;
  KeyboardGrabWatchdog& operator=(const KeyboardGrabWatchdog&) = delete;

  /// Events are being handled from now on, or waited for.
  void becomesBusy();
  void becomesIdle();
  /// While a menu is open it has the keyboard for good reason. Done when this returns.
  void setMenuIsOpen(bool isOpen);

private:
  using Moment = std::chrono::steady_clock::time_point;
  void run();

  xcb_connection_t& connection_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::optional<Moment> deadline_; ///< nothing while the program is idle
  bool watches_ = false;           ///< the thread will look by itself
  bool menuIsOpen_ = false;
  bool isOver_ = false;
  std::thread thread_;
};

} // namespace tavrel
