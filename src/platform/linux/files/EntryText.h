#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

/// The text of a desktop entry with a key of its main group set to a value, written raw, or without
/// the key. Every other byte stays as it is. A text without that group gets one.
[[nodiscard]] std::string withEntryKey(std::string text, std::string_view key,
                                       const std::optional<std::string>& value);

/// A text as the value of a key: blanks at its start, line feeds and backslashes escaped.
[[nodiscard]] std::string entryValue(std::string_view text);

/// A path as the one argument or the program of an Exec key, quoted.
[[nodiscard]] std::string execArgument(std::string_view path);

} // namespace tavrel
