#pragma once

#include "platform/linux/x11/keyboard/KeyboardGrab.h"
#include "platform/linux/x11/keyboard/RecordedKeyEvents.h"

#include <QAbstractNativeEventFilter>
#include <QTimer>

#include <cstdint>
#include <functional>

namespace tavrel {

/// Grabs the keyboard for a menu, from before it shows until it has closed. What is typed before
/// the menu has a window, since the gesture began (GestureKeyBuffer), waits here and is forwarded
/// to the window as soon as there is one; what comes after it is gone goes to the application in
/// front.
class MenuKeyForwarder final : public QAbstractNativeEventFilter {
public:
  /// `menuWindow` answers 0 while the menu has no window. There is one forwarder at a time.
  explicit MenuKeyForwarder(std::function<std::uint32_t()> menuWindow);
  ~MenuKeyForwarder() override;
  MenuKeyForwarder(const MenuKeyForwarder&) = delete;
  MenuKeyForwarder& operator=(const MenuKeyForwarder&) = delete;

  /// For when something has released the grab meanwhile.
  void grabAgain() { KeyboardGrab::take(); }
  /// A key event that the toolkit has read: the server's code, time and modifiers.
  struct ReadKey {
    std::uint32_t code;
    KeyDirection direction;
    std::uint32_t time;
    std::uint32_t modifiers;
  };
  /// Keeps one that the toolkit had read already when the menu closed.
  void keepKey(const ReadKey& read);

  bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
  bool redirectKey(xcb_key_press_event_t& key);
  void forwardPending();

  std::function<std::uint32_t()> menuWindow_;
  std::optional<KeyboardGrab> grab_;
  RecordedKeyEvents pendingKeys_;
  int inFlight_ = 0; ///< forwarded events that have not come back from the server
  QTimer windowPoll_;
};

} // namespace tavrel
