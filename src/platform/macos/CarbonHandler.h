#pragma once

#include <Carbon/Carbon.h>

#include <functional>
#include <vector>

namespace tavrel {

/// Calls `handle` for events of some kinds that reach a target, for as long as it lives. The events
/// are passed on. Every call has an autorelease pool of its own.
class CarbonHandler {
public:
  explicit CarbonHandler(std::function<void(EventRef)> handle) : handle_(std::move(handle)) {}
  ~CarbonHandler() { remove(); }
  CarbonHandler(const CarbonHandler&) = delete;
  CarbonHandler& operator=(const CarbonHandler&) = delete;

  [[nodiscard]] ::OSStatus install(EventTargetRef target, const std::vector<EventTypeSpec>& kinds);
  void remove();

private:
  static ::OSStatus call(EventHandlerCallRef next, EventRef event, void* self);

  std::function<void(EventRef)> handle_;
  EventHandlerRef handler_ = nullptr;
};

} // namespace tavrel
