#pragma once

#include "platform/linux/x11/windows/DesktopWindows.h"

namespace tavrel {

class ApplicationRegistry;

/// Whether a window is a terminal emulator's: by the category of its desktop entry, or, for those
/// without such an entry, by a well-known class or program.
[[nodiscard]] bool isTerminal(const WindowFacts& window, ApplicationRegistry& registry);

/// Whether it is one of those well-known ones, which all paste by Ctrl+Shift+V but for the bare.
[[nodiscard]] bool isKnownTerminal(const WindowFacts& window);

/// Whether it is a terminal without a copy shortcut (xterm, rxvt and the like), which passes
/// Ctrl+Shift+C on as Ctrl+C, an interrupt.
[[nodiscard]] bool isBareTerminal(const WindowFacts& window);

} // namespace tavrel
