#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// The absolute path of a program that may be run: a path as it stands, a name by the PATH
/// variable. Nothing when there is none.
[[nodiscard]] std::optional<std::string> findProgram(const std::string& name);

/// The command that runs another one in the person's terminal window, to put before it; empty when
/// no terminal is installed.
[[nodiscard]] std::vector<std::string> terminalCommand();

} // namespace tavrel
