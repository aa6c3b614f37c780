#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// The absolute path of an executable file: an absolute path as it is, a name by the PATH variable.
/// Nothing when there is none.
[[nodiscard]] std::optional<std::string> findProgram(const std::string& name);

/// What to put before a command so that it runs in a new window of the user's terminal emulator, as
/// {"/usr/bin/konsole", "-e"}; empty when none is installed.
[[nodiscard]] std::vector<std::string> terminalCommand();

} // namespace tavrel
