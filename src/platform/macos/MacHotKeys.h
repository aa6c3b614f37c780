#pragma once

#include "platform/HotKeyReleases.h"
#include "platform/HotKeys.h"
#include "platform/macos/CarbonHandler.h"

#include <map>

namespace tavrel {

/// The system's hot keys; a reference of ours is the system's own.
class MacHotKeys final : public HotKeys {
public:
  MacHotKeys();
  ~MacHotKeys() override;

  void setEventTarget(EventTarget* target) override { target_ = target; }
  HotKeyRegistration registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                    EventHotKeyID id) override;
  OSStatus unregisterHotKey(EventHotKeyRef reference) override;

  /// Whether a release that came on whatever way has not been handled yet.
  [[nodiscard]] bool isNews(EventHotKeyRef reference) { return releases_.isFirst(reference); }

private:
  void take(EventRef event);

  EventTarget* target_ = nullptr;
  HotKeyReleases releases_;
  std::map<std::uint32_t, ::EventHotKeyRef> registered_; ///< by a number of our own
  std::uint32_t last_ = 0;
  CarbonHandler handler_;
};

} // namespace tavrel
