#pragma once

#include "platform/NotificationCenter.h"

#include <vector>

namespace tavrel {

/// Whether a notification is one that an observer asked for.
[[nodiscard]] bool matches(const NotificationFilter& filter, const Notification& notification);

/// Notifications inside the process: plain calls, the same on every desktop.
class InProcessNotificationCenter final : public NotificationCenter {
public:
  [[nodiscard]] ObserverId addObserver(NotificationFilter filter,
                                       NotificationHandler handler) override;
  void removeObserver(ObserverId observer) override;
  void post(const Notification& notification) override;

private:
  struct Observer {
    ObserverId id = 0;
    NotificationFilter filter;
    NotificationHandler handler;
  };
  [[nodiscard]] const Observer* find(ObserverId id) const;

  std::vector<Observer> observers_;
  ObserverId last_ = 0;
};

} // namespace tavrel
