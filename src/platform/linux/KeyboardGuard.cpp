#include "platform/linux/KeyboardGuard.h"

#include <xcb/xcb.h>

namespace tavrel {

KeyboardGuard::KeyboardGuard(xcb_connection_t& connection)
    : connection_(connection), thread_([this] { run(); }) {}

KeyboardGuard::~KeyboardGuard() {
  {
    const std::lock_guard lock(mutex_);
    isOver_ = true;
  }
  changed_.notify_one();
  thread_.join();
}

void KeyboardGuard::start(std::chrono::milliseconds longest) {
  {
    const std::lock_guard lock(mutex_);
    longest_ = longest;
    deadline_ = std::chrono::steady_clock::now() + longest;
    hasLetGo_ = false;
  }
  changed_.notify_one();
}

bool KeyboardGuard::stop() {
  const std::lock_guard lock(mutex_);
  deadline_.reset();
  return !hasLetGo_;
}

void KeyboardGuard::run() {
  std::unique_lock lock(mutex_);
  while (!isOver_) {
    if (!deadline_) {
      changed_.wait(lock);
    } else if (std::chrono::steady_clock::now() < *deadline_) {
      changed_.wait_until(lock, Moment(*deadline_));
    } else {
      *deadline_ += longest_;
      hasLetGo_ = true;
      xcb_ungrab_keyboard(&connection_, XCB_CURRENT_TIME);
      xcb_flush(&connection_);
    }
  }
}

} // namespace tavrel
