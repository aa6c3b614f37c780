#pragma once

#include "platform/linux/x11/selection/SelectionRoad.h"
#include "platform/linux/x11/windows/DesktopWindows.h"

namespace tavrel {

class AccessibilityBus;
class ApplicationRegistry;

/// What can be known of the program of a window without asking it: from its window, its desktop
/// entry and the files that it has mapped. `exceptions`: names of applications that get no key, in
/// any letter case: of the entry, its file, the program or the window's class.
[[nodiscard]] ProgramEvidence programEvidence(const WindowFacts& window,
                                              ApplicationRegistry& registry,
                                              const std::vector<std::string>& exceptions);

/// The roles of the process's elements that say that they have the keyboard, as the accessibility
/// bus tells within a sixth of a second. None has it while we have grabbed the keyboard.
[[nodiscard]] std::vector<std::uint32_t> focusedRoles(std::int32_t process, AccessibilityBus& bus);

/// The name that a user knows the program by.
[[nodiscard]] std::string programName(const WindowFacts& window, ApplicationRegistry& registry);

} // namespace tavrel
