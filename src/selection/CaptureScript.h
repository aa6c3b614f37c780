#pragma once

#include "base/PropertyList.h"

#include <optional>
#include <string>
#include <vector>

namespace tavrel {

struct AppleEventDescriptor;

/// The name of the script that asks the application of that name for its selection; nothing for an
/// application that is asked by a keystroke.
[[nodiscard]] std::optional<std::string> captureScriptFor(const std::string& applicationName);

/// The text of a descriptor's raw data: UTF-16 in the machine's byte order, an odd last byte
/// dropped.
[[nodiscard]] std::string textFromUnits(const Bytes& data);

/// The paths that a capture script returned; nothing when it returned no list.
[[nodiscard]] std::optional<std::vector<std::string>>
pathsIn(const std::optional<AppleEventDescriptor>& result);

} // namespace tavrel
