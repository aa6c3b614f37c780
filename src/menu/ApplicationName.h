#pragma once

#include <string>

namespace tavrel {

struct RunningApplication;

/// The name by which an application is compared with that in front, for a name or a path of it:
/// what the desktop says, which knows more words for one application; else the last component
/// without its ending.
[[nodiscard]] std::string applicationName(const std::string& text, const RunningApplication& front);

} // namespace tavrel
