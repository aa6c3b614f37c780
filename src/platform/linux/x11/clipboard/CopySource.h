#pragma once

#include "platform/linux/x11/clipboard/SelectionConnection.h"

#include <cstdint>

namespace tavrel {

/// The window that is asked to copy, by which the copies of its program are told from those of
/// others.
class CopySource {
public:
  /// To be made before the request is sent.
  CopySource(SelectionConnection& connection, xcb_window_t window);

  [[nodiscard]] xcb_window_t window() const { return window_; }
  /// Whether a clipboard that belongs to this window now is a copy by the process of the source,
  /// over whichever connection (Alacritty 0.11 copies over another one than that of its window).
  [[nodiscard]] bool madeItself(xcb_window_t owner) const;
  /// The same, or one by a helper of it (xclip, in many editors): a program that was started after
  /// the request, or that has ended: xclip 0.13 leaves its window to a child. Once this program has
  /// started another one, none is taken for a helper: it may be an item's.
  [[nodiscard]] bool made(xcb_window_t owner) const;
  /// Whether the window and its program are still there.
  [[nodiscard]] bool isThere() const;

private:
  SelectionConnection* connection_;
  xcb_window_t window_;
  std::int32_t process_; ///< 0 for one on another machine
  std::uint64_t madeAt_; ///< in clock ticks since the machine started
};

} // namespace tavrel
