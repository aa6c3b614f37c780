#include "platform/common/InProcessNotificationCenter.h"

#include <algorithm>

namespace tavrel {

bool matches(const NotificationFilter& filter, const Notification& notification) {
  return (!filter.name || filter.name == notification.name) &&
         (!filter.object || filter.object == notification.object);
}

ObserverId InProcessNotificationCenter::addObserver(NotificationFilter filter,
                                                    NotificationHandler handler) {
  observers_.push_back({++last_, std::move(filter), std::move(handler)});
  return last_;
}

void InProcessNotificationCenter::removeObserver(ObserverId observer) {
  std::erase_if(observers_, [observer](const Observer& each) { return each.id == observer; });
}

const InProcessNotificationCenter::Observer*
InProcessNotificationCenter::find(ObserverId id) const {
  const auto found = std::find_if(observers_.begin(), observers_.end(),
                                  [id](const Observer& each) { return each.id == id; });
  return found == observers_.end() ? nullptr : &*found;
}

// The observers of now are taken by number: a handler may add and remove others, or itself.
void InProcessNotificationCenter::post(const Notification& notification) {
  std::vector<ObserverId> addressed;
  for (const Observer& observer : observers_)
    if (matches(observer.filter, notification))
      addressed.push_back(observer.id);
  for (ObserverId id : addressed)
    if (const Observer* observer = find(id)) {
      const NotificationHandler handler = observer->handler;
      handler(notification);
    }
}

} // namespace tavrel
