#pragma once

#include "base/PropertyList.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace tavrel {

/// Who the contextual-menu plug-in says it is: the object of its notifications. Those of the
/// preference program name `preferenceDomain` (platform/Preferences.h).
inline constexpr const char* contextMenuSender = "qorvane.tavrel.cm";

struct Notification {
  std::string name;
  std::optional<std::string> object; ///< identifies the sender
  PropertyList::Dictionary userInfo;
};

/// Which notifications an observer gets: those that equal what is set here.
struct NotificationFilter {
  std::optional<std::string> name;
  std::optional<std::string> object;
};

using NotificationHandler = std::function<void(const Notification&)>;
using ObserverId = std::uint64_t;

/// Carries notifications, inside the process or between processes. Handlers run on the main
/// thread, one notification after another, in the order of posting and then of observing. A
/// handler may add and remove observers: a removed one is not called any more, a new one is called
/// from the next notification on.
class NotificationCenter {
public:
  virtual ~NotificationCenter() = default;
  [[nodiscard]] virtual ObserverId addObserver(NotificationFilter filter,
                                               NotificationHandler handler) = 0;
  /// An unknown id is ignored.
  virtual void removeObserver(ObserverId observer) = 0;
  /// Local centers call the handlers before they return; distributed ones later.
  virtual void post(const Notification& notification) = 0;
};

} // namespace tavrel
