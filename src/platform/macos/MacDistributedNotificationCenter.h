#pragma once

#include "platform/NotificationCenter.h"

#include <memory>

namespace tavrel {

/// The session's notification center. What arrives while a handler runs an event loop of its own
/// waits until that handler is back, and what arrives while a menu is open until it has closed:
/// handlers may change the menu.
class MacDistributedNotificationCenter final : public NotificationCenter {
public:
  MacDistributedNotificationCenter();
  MacDistributedNotificationCenter(const MacDistributedNotificationCenter&) = delete;
  MacDistributedNotificationCenter& operator=(const MacDistributedNotificationCenter&) = delete;
  ~MacDistributedNotificationCenter() override;

  [[nodiscard]] ObserverId addObserver(NotificationFilter filter,
                                       NotificationHandler handler) override;
  void removeObserver(ObserverId observer) override;
  void post(const Notification& notification) override;

private:
  struct Deliveries;
  std::shared_ptr<Deliveries> deliveries_;
};

} // namespace tavrel
