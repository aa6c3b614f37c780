#pragma once

#include "platform/linux/x11/windows/DesktopWindows.h"

namespace tavrel {

class ApplicationRegistry;

/// Whether a window is a terminal emulator's: its desktop entry is of the category, or it bears the
/// class of a well-known one that has none, or is of its program.
[[nodiscard]] bool isTerminal(const WindowFacts& window, ApplicationRegistry& registry);

/// Whether it is one of the old terminals that take Ctrl+Shift+C for Ctrl+C.
[[nodiscard]] bool isBareTerminal(const WindowFacts& window);

} // namespace tavrel
