#include "platform/memory/MemoryNotificationCenter.h"

namespace tavrel {

void MemoryNotificationCenter::post(const Notification& notification) {
  control.posted.push_back(notification);
  if (delivery_ == Delivery::atOnce)
    center_.post(notification);
  else
    pending_.push_back(notification);
}

void MemoryNotificationCenter::deliverPending() {
  while (!pending_.empty()) {
    const Notification next = std::move(pending_.front());
    pending_.pop_front();
    center_.post(next);
  }
}

} // namespace tavrel
