#pragma once

#include "platform/linux/x11/keyboard/KeyboardGrab.h"
#include "platform/linux/x11/keyboard/RecordedKeyEvents.h"

#include <QAbstractNativeEventFilter>
#include <QTimer>

#include <cstdint>
#include <functional>

namespace tavrel {

/// Holds the keyboard for a menu that is about to show, and while it shows: what is typed
/// meanwhile, and what was typed since the gesture began, waits and goes to the menu once that has
/// a window; what comes when that has gone again goes to the application in front.
class MenuKeyForwarder final : public QAbstractNativeEventFilter {
public:
  /// The menu's window, 0 while it has none. There is one hold at a time.
  explicit MenuKeyForwarder(std::function<std::uint32_t()> menuWindow);
  ~MenuKeyForwarder() override;
  MenuKeyForwarder(const MenuKeyForwarder&) = delete;
  MenuKeyForwarder& operator=(const MenuKeyForwarder&) = delete;

  /// Takes hold once more if need be.
  void take() { KeyboardGrab::take(); }
  /// A key, by the server's number, that the toolkit had read already when the menu closed.
  void keep(std::uint32_t code, KeyDirection direction);

  bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
  bool takeKey(xcb_key_press_event_t& key);
  void sendOn();

  std::function<std::uint32_t()> menuWindow_;
  std::optional<KeyboardGrab> grab_;
  RecordedKeyEvents waiting_;
  int underWay_ = 0; ///< sent to the menu's window, by way of the server
  QTimer look_;
};

} // namespace tavrel
