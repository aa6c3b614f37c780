#pragma once

#include <QAbstractNativeEventFilter>

#include <cstdint>
#include <functional>

namespace tavrel {

/// Holds the keyboard for a menu that is about to show: what is typed meanwhile waits in the
/// toolkit's queue and goes to the menu once that has a window. While another program holds the
/// keyboard, nothing is held.
class KeyboardHold final : public QAbstractNativeEventFilter {
public:
  /// The menu's window, 0 while it has none. There is one hold at a time.
  explicit KeyboardHold(std::function<std::uint32_t()> menuWindow);
  ~KeyboardHold() override;
  KeyboardHold(const KeyboardHold&) = delete;
  KeyboardHold& operator=(const KeyboardHold&) = delete;

  /// Takes hold, once more if need be.
  void take();
  /// Lets go at once, so that keys posted from here on reach the application in front.
  void letGo();
  /// The one in place; null when no menu is about to show.
  [[nodiscard]] static KeyboardHold* current();

  bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
  std::function<std::uint32_t()> menuWindow_;
};

} // namespace tavrel
