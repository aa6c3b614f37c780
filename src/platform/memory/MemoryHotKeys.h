#pragma once

#include "platform/HotKeys.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace tavrel {

/// Hot keys that a test presses.
class MemoryHotKeys final : public HotKeys {
public:
  struct Registered {
    std::uint32_t keyCode = 0;
    std::uint32_t modifiers = 0;
    EventHotKeyID id;
    EventHotKeyRef reference = 0;
  };

  struct Control {
    std::vector<Registered> registered;                        ///< now, in order of registration
    std::set<std::pair<std::uint32_t, std::uint32_t>> refused; ///< key code and modifiers
    bool refusesToUnregister = false;                          ///< and keeps the key
    std::function<void()> onRegister;                          ///< before each registration
    std::vector<std::string> log; ///< each call, as "register 8 0x100", "unregister 1"
  };
  Control control;

  void setEventTarget(EventTarget* target) override { target_ = target; }
  HotKeyRegistration registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                    const EventHotKeyID& id) override;
  OSStatus unregisterHotKey(EventHotKeyRef reference) override;

  /// The user presses and releases the combination; false when nobody has it registered.
  bool press(std::uint32_t keyCode, std::uint32_t modifiers);

private:
  EventTarget* target_ = nullptr;
  EventHotKeyRef last_ = 0;
};

} // namespace tavrel
