#pragma once

#include "platform/Scripts.h"

#include <memory>
#include <optional>
#include <string>

namespace tavrel {

/// A compiled script, to be run for its result; null when it cannot be read.
[[nodiscard]] std::unique_ptr<NSAppleScript> appleScriptFromFile(const std::string& path);

/// Compiles and runs a text; nothing when no script object could be made of it.
[[nodiscard]] std::optional<SourceRun> runAppleScriptSource(const std::string& source);

} // namespace tavrel
