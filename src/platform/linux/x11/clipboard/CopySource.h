#pragma once

#include "platform/linux/x11/clipboard/SelectionConnection.h"

#include <cstdint>

namespace tavrel {

/// The window that is asked to copy, by which the copies of its program are told from those of
/// others. A program may copy over another connection than that of its window (Alacritty 0.11), or
/// start a helper for it (xclip, by many editors in terminals): what counts is its process, any
/// that was started after the request, and any that has ended: xclip 0.13 leaves its window to a
/// child.
class CopySource {
public:
  /// To be made before the request is sent.
  CopySource(SelectionConnection& connection, xcb_window_t window);

  [[nodiscard]] xcb_window_t window() const { return window_; }
  /// Whether a clipboard that belongs to this window now is a copy by the source.
  [[nodiscard]] bool made(xcb_window_t owner) const;

private:
  SelectionConnection* connection_;
  xcb_window_t window_;
  std::int32_t process_; ///< 0 for one on another machine
  std::uint64_t madeAt_; ///< in clock ticks since the machine started
};

} // namespace tavrel
