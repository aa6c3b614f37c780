#pragma once

#include <span>
#include <string>

namespace tavrel {

/// What a command line asks for.
enum class Command { start, help, version, misuse };

/// The arguments without the program's name. The first one decides; `misuse` for everything that
/// is not "--help" or "--version" alone.
[[nodiscard]] Command commandFromArguments(std::span<const char* const> arguments);

/// What `--help` prints.
[[nodiscard]] std::string helpText();

} // namespace tavrel
