#include "platform/linux/x11/gestures/KeyboardGrabWatchdog.h"

#include <xcb/xcb.h>

namespace tavrel {

namespace {
constexpr std::chrono::milliseconds longestBusy{250};
}

KeyboardGrabWatchdog::KeyboardGrabWatchdog(xcb_connection_t& connection)
    : connection_(connection), thread_([this] { run(); }) {}

KeyboardGrabWatchdog::~KeyboardGrabWatchdog() {
  {
    const std::lock_guard lock(mutex_);
    isOver_ = true;
  }
  changed_.notify_one();
  thread_.join();
}

void KeyboardGrabWatchdog::becomesBusy() {
  const std::lock_guard lock(mutex_);
  if (deadline_)
    return;
  deadline_ = std::chrono::steady_clock::now() + longestBusy;
  if (!watches_)
    changed_.notify_one();
}

void KeyboardGrabWatchdog::becomesIdle() {
  const std::lock_guard lock(mutex_);
  deadline_.reset();
}

void KeyboardGrabWatchdog::setMenuIsOpen(bool isOpen) {
  const std::lock_guard lock(mutex_);
  menuIsOpen_ = isOpen;
}

// While nothing happens it sleeps; while much happens it wakes no more than four times a second.
void KeyboardGrabWatchdog::run() {
  std::unique_lock lock(mutex_);
  while (!isOver_) {
    watches_ = deadline_.has_value();
    if (!watches_) {
      changed_.wait(lock);
      continue;
    }
    changed_.wait_until(lock, Moment(*deadline_), [this] { return isOver_; });
    if (!deadline_ || std::chrono::steady_clock::now() < *deadline_)
      continue;
    *deadline_ += longestBusy;
    if (menuIsOpen_)
      continue;
    xcb_ungrab_keyboard(&connection_, XCB_CURRENT_TIME);
    xcb_flush(&connection_);
  }
}

} // namespace tavrel
