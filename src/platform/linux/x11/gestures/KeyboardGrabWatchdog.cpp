#include "platform/linux/x11/gestures/KeyboardGrabWatchdog.h"

#include <xcb/xcb.h>

namespace tavrel {

namespace {
constexpr std::chrono::milliseconds busyTimeout{250};
}

KeyboardGrabWatchdog::KeyboardGrabWatchdog(xcb_connection_t& connection)
    : connection_(connection), thread_([this] { run(); }) {}

KeyboardGrabWatchdog::~KeyboardGrabWatchdog() {
  {
    const std::lock_guard lock(mutex_);
    isStopped_ = true;
  }
  wakeUp_.notify_one();
  thread_.join();
}

void KeyboardGrabWatchdog::becomesBusy() {
  const std::lock_guard lock(mutex_);
  if (deadline_)
    return;
  deadline_ = std::chrono::steady_clock::now() + busyTimeout;
  if (!hasDeadline_)
    wakeUp_.notify_one();
}

void KeyboardGrabWatchdog::becomesIdle() {
  const std::lock_guard lock(mutex_);
  deadline_.reset();
}

void KeyboardGrabWatchdog::setMenuIsOpen(bool isOpen) {
  const std::lock_guard lock(mutex_);
  menuIsOpen_ = isOpen;
}

// Sleeps while the event loop is idle. A deadline that has been replaced meanwhile is noticed when
// it expires, so a busy event loop wakes this thread four times a second at most.
void KeyboardGrabWatchdog::run() {
  std::unique_lock lock(mutex_);
  while (!isStopped_) {
    hasDeadline_ = deadline_.has_value();
    if (!hasDeadline_) {
      wakeUp_.wait(lock);
      continue;
    }
    wakeUp_.wait_until(lock, TimePoint(*deadline_), [this] { return isStopped_; });
    if (!deadline_ || std::chrono::steady_clock::now() < *deadline_)
      continue;
    *deadline_ += busyTimeout;
    if (menuIsOpen_)
      continue;
    xcb_ungrab_keyboard(&connection_, XCB_CURRENT_TIME);
    xcb_flush(&connection_);
  }
}

} // namespace tavrel
