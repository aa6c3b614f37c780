#pragma once

#include "platform/HotKeys.h"
#include "platform/common/HotKeyReleases.h"
#include "platform/macos/CarbonHandler.h"

#include <map>
#include <optional>

namespace tavrel {

/// The system's hot keys. The system may give a reference out again; ours are never the same.
class MacHotKeys final : public HotKeys {
public:
  MacHotKeys();
  ~MacHotKeys() override;

  void setEventTarget(EventTarget* target) override { target_ = target; }
  HotKeyRegistration registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                    const EventHotKeyID& id) override;
  OSStatus unregisterHotKey(EventHotKeyRef reference) override;

  /// Our reference for one of the system's that was released; nothing when that has been handled
  /// already, or is none of ours.
  [[nodiscard]] std::optional<EventHotKeyRef> newsOf(std::uint64_t systemReference);

private:
  void take(EventRef event);

  EventTarget* target_ = nullptr;
  HotKeyReleases releases_;
  std::map<EventHotKeyRef, ::EventHotKeyRef> registered_;
  std::uint32_t last_ = 0;
  CarbonHandler handler_;
};

} // namespace tavrel
