#pragma once

#include "platform/EventMonitor.h"

namespace tavrel {

/// Nothing yet.
class LinuxEventMonitor final : public EventMonitor {
public:
  OSStatus installModifierHandler(std::function<void()>) override { return 0; }
};

} // namespace tavrel
