#pragma once

#include "platform/HotKeys.h"

namespace tavrel {

/// Nothing yet.
class LinuxHotKeys final : public HotKeys {
public:
  void setEventTarget(EventTarget*) override {}
  HotKeyRegistration registerHotKey(std::uint32_t, std::uint32_t, EventHotKeyID) override {
    return {hotKeyStatus::taken, 0};
  }
  OSStatus unregisterHotKey(EventHotKeyRef) override { return hotKeyStatus::unknown; }
};

} // namespace tavrel
