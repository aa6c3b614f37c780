#pragma once

#include "platform/linux/dbus/BusInterface.h"

namespace tavrel {

class ScriptableApplication;

/// `qorvane.tavrel.Scripting`: the application's commands and properties on the bus. A value that
/// is too long for a message is answered with an error. The application must outlive the interface;
/// `uninstall` starts the removal and returns, so that the caller is answered before it is over.
[[nodiscard]] BusInterface scriptingInterface(ScriptableApplication& application,
                                              std::function<void()> uninstall);

inline constexpr const char* scriptingInterfaceName = "qorvane.tavrel.Scripting";

} // namespace tavrel
