#pragma once

#include "platform/linux/x11/windows/DesktopWindows.h"

#include <QRect>

namespace tavrel {

/// A place on the X screen, in its pixels from the top left.
struct ScreenPixel {
  std::int16_t x = 0;
  std::int16_t y = 0;
};

/// The window on top there: one that the window manager lists, or a menu or the like that it does
/// not manage. 0 where only the root window is.
[[nodiscard]] WindowId windowAt(ScreenPixel pixel, DesktopWindows& windows);

/// Where on the screen the inside of a window is; an empty place when it is gone.
[[nodiscard]] QRect placeOf(WindowId window);

} // namespace tavrel
