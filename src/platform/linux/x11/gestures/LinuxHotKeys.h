#pragma once

#include "platform/HotKeys.h"
#include "platform/linux/x11/gestures/PressedHotKeys.h"
#include "platform/linux/x11/keyboard/LayoutWatch.h"
#include "platform/linux/x11/keyboard/ServerKey.h"
#include "platform/linux/x11/keyboard/ServerKeys.h"

#include <QObject>

#include <deque>
#include <set>
#include <string>
#include <vector>

namespace tavrel {

class GestureKeyBuffer;
class OwnKeystrokes;

/// Hot keys by passive grabs on the toolkit's connection: grabbed on another one, a hot key that is
/// still down would keep our own menu from grabbing the keyboard. A hot key is a place on the
/// keyboard, and the grabs follow when the layout changes; a refused one is tried again then. Where
/// several keys have the code (F13 and Print), one that is free is enough. One line on standard
/// error names a combination that cannot be grabbed, what it is for, and what to do.
class LinuxHotKeys final : public HotKeys {
public:
  /// Needs a QGuiApplication. Keystrokes of our own are no hot keys. The buffer, if any, keeps what
  /// is typed from a hot key's press until its item has been carried out; both must be constructed
  /// before this and outlive it.
  explicit LinuxHotKeys(OwnKeystrokes& own, GestureKeyBuffer* keyBuffer = nullptr);
  ~LinuxHotKeys() override;

  void setEventTarget(EventTarget* target) override { target_ = target; }
  /// `hotKeyStatus::taken` also for a combination that is registered already.
  HotKeyRegistration registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                    const EventHotKeyID& id) override;
  OSStatus unregisterHotKey(EventHotKeyRef reference) override;

private:
  struct Registered {
    std::uint32_t keyCode = 0;
    std::uint32_t modifiers = 0;
    EventHotKeyRef reference = 0;
    EventHotKeyID id;
    std::vector<KeyGrab> grabs; ///< empty while the layout lacks a key or another program has it
  };

  /// A hot key that went up. All may be registered anew before it is delivered.
  struct Released {
    std::uint32_t keyCode = 0;
    std::uint32_t modifiers = 0;
  };

  [[nodiscard]] const char* grab(Registered& key);
  [[nodiscard]] bool isAnotherItems(const Registered& key) const;
  [[nodiscard]] EventHotKeyRef find(std::uint8_t key, std::uint16_t modifiers) const;
  void followLayout();
  void suspend(const ServerKeySet& keys);
  void resume(const ServerKeySet& keys);
  void warnOf(const Registered& key, const char* why);
  void hotKeyPressed();
  void hotKeyReleased(EventHotKeyRef reference);
  void deliverLater();
  void deliver(const Released& key);

  OwnKeystrokes& own_;
  GestureKeyBuffer* keyBuffer_;
  xcb_connection_t* connection_; ///< null where there is no X server
  ServerKeys keys_;
  EventTarget* target_ = nullptr;
  std::vector<Registered> registered_;
  EventHotKeyRef lastReference_ = 0;
  std::set<std::string> warnings_; ///< given already: all keys are registered anew again and again
  std::deque<Released> released_;  ///< to be delivered
  QObject context_;                ///< ends the timers with this
  PressedHotKeys pressed_;
  LayoutWatch layoutWatch_;
};

} // namespace tavrel
