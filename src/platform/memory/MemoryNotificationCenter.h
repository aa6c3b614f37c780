#pragma once

#include "platform/common/InProcessNotificationCenter.h"

#include <deque>
#include <vector>

namespace tavrel {

/// When the memory center calls the handlers.
enum class Delivery { atOnce, later };

/// A notification center that a test watches; with `later` it stands for the distributed one.
class MemoryNotificationCenter final : public NotificationCenter {
public:
  explicit MemoryNotificationCenter(Delivery delivery) : delivery_(delivery) {}

  struct Control {
    std::vector<Notification> posted;
  };
  Control control;

  /// Calls the handlers for what waits, in order.
  void deliverPending();

  [[nodiscard]] ObserverId addObserver(NotificationFilter filter,
                                       NotificationHandler handler) override {
    return center_.addObserver(std::move(filter), std::move(handler));
  }
  void removeObserver(ObserverId observer) override { center_.removeObserver(observer); }
  void post(const Notification& notification) override;

private:
  Delivery delivery_;
  InProcessNotificationCenter center_;
  std::deque<Notification> pending_;
};

} // namespace tavrel
