#import "platform/macos/CarbonHandler.h"

#include <utility>

namespace tavrel {

::OSStatus CarbonHandler::install(EventTargetRef target, const std::vector<EventTypeSpec>& kinds) {
  remove();
  return InstallEventHandler(target, &CarbonHandler::call, kinds.size(), kinds.data(), this,
                             &handler_);
}

void CarbonHandler::remove() {
  if (EventHandlerRef const handler = std::exchange(handler_, nullptr))
    RemoveEventHandler(handler);
}

::OSStatus CarbonHandler::call(EventHandlerCallRef, EventRef event, void* self) {
  @autoreleasepool {
    static_cast<CarbonHandler*>(self)->handle_(event);
  }
  return eventNotHandledErr;
}

} // namespace tavrel
