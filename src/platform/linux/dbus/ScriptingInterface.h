#pragma once

#include "platform/linux/dbus/BusInterface.h"

namespace tavrel {

class ScriptableApplication;

/// `qorvane.tavrel.Scripting`: the application's commands and properties on the bus. What would be
/// too long for a message is an error. The application must outlive the interface; `uninstall` is
/// asked for the removal, and the caller is answered before that is over.
[[nodiscard]] BusInterface scriptingInterface(ScriptableApplication& application,
                                              std::function<void()> uninstall);

inline constexpr const char* scriptingInterfaceName = "qorvane.tavrel.Scripting";

} // namespace tavrel
