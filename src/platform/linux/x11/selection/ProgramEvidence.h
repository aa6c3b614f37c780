#pragma once

#include "platform/linux/x11/selection/SelectionRoad.h"
#include "platform/linux/x11/windows/DesktopWindows.h"

namespace tavrel {

class AccessibilityBus;
class ApplicationRegistry;

/// What can be known of the program of a window: from its window, its desktop entry, the files that
/// it has mapped and, where parts of its windows may hand keys on, the accessibility bus (at most a
/// sixth of a second). `exceptions`: names of applications that get no key, in any letter case: of
/// the entry, its file, the program or the window's class.
[[nodiscard]] ProgramEvidence programEvidence(const WindowFacts& window,
                                              ApplicationRegistry& registry, AccessibilityBus& bus,
                                              const std::vector<std::string>& exceptions);

/// The name that a user knows the program by.
[[nodiscard]] std::string programName(const WindowFacts& window, ApplicationRegistry& registry);

} // namespace tavrel
