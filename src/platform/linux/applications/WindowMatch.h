#pragma once

#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/x11/windows/DesktopWindows.h"

namespace tavrel {

/// The application a window belongs to. `executable` is the program of the window's process, or
/// empty. The surest match counts first: the id that the window names, StartupWMClass, the window's
/// class as an entry's id, as the program of an entry, and as the end of an id like
/// "org.example.Class". Null when no installed application fits.
[[nodiscard]] const InstalledApplication* applicationOf(const WindowFacts& window,
                                                        const std::string& executable,
                                                        const ApplicationRegistry& registry);

/// Whether a program runs scripts, so that it does not identify an application: python, java, ...
[[nodiscard]] bool isInterpreter(const std::string& executable);

} // namespace tavrel
