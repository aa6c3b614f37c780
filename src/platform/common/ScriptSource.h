#pragma once

#include <string_view>

namespace tavrel {

/// Whether a source text, outside its quoted strings, names a command that runs shell commands or
/// other scripts, the only ways to what such a text may not do. For desktops whose scripting
/// component makes no difference between authors.
[[nodiscard]] bool asksForShell(std::string_view source);

} // namespace tavrel
