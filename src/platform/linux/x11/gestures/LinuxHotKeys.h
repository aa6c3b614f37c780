#pragma once

#include "platform/HotKeys.h"
#include "platform/linux/x11/gestures/PressedHotKeys.h"
#include "platform/linux/x11/keyboard/LayoutWatch.h"
#include "platform/linux/x11/keyboard/ServerKeys.h"

#include <QObject>

#include <vector>

namespace tavrel {

class GestureKeyBuffer;

/// Keys grabbed on the toolkit's connection, so that our own menu can take the keyboard while one
/// is held. A key is grabbed by its place; the grabs follow the layout. One line on standard error
/// names a combination that cannot be had, in words.
class LinuxHotKeys final : public HotKeys {
public:
  /// Needs a QGuiApplication. The hold, if any, keeps what is typed from a hot key's press until
  /// what it does has shown; it must have been there before and outlive this.
  explicit LinuxHotKeys(GestureKeyBuffer* hold = nullptr);
  ~LinuxHotKeys() override;

  void setEventTarget(EventTarget* target) override { target_ = target; }
  /// A combination that is registered already is taken.
  HotKeyRegistration registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                    EventHotKeyID id) override;
  OSStatus unregisterHotKey(EventHotKeyRef reference) override;

private:
  struct Registered {
    std::uint32_t keyCode = 0;
    std::uint32_t modifiers = 0;
    EventHotKeyRef reference = 0;
    std::vector<KeyGrab> grabs; ///< empty: the layout of the moment has no place for it
  };

  [[nodiscard]] const char* take(Registered& key);
  [[nodiscard]] bool isRegistered(EventHotKeyRef reference) const;
  [[nodiscard]] EventHotKeyRef find(std::uint8_t key, std::uint16_t modifiers) const;
  void follow();
  void refuse(const Registered& key, const char* why) const;
  void tellPressed();
  void tellReleased(EventHotKeyRef reference);

  GestureKeyBuffer* hold_;
  xcb_connection_t* connection_; ///< null where there is no X server
  ServerKeys keys_;
  EventTarget* target_ = nullptr;
  std::vector<Registered> registered_;
  EventHotKeyRef last_ = 0;
  QObject eventLoop_;
  PressedHotKeys held_;
  LayoutWatch layout_;
};

} // namespace tavrel
