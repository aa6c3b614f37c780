#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

/// The text of a desktop entry with a key of the group [Desktop Entry] set to a value that is
/// escaped already, or without the key when there is no value. Every other byte stays as it is. A
/// text without that group gets one.
[[nodiscard]] std::string withEntryKey(std::string text, std::string_view key,
                                       const std::optional<std::string>& value);

/// A text as the value of a key: leading blanks, line feeds and backslashes are escaped.
[[nodiscard]] std::string escapedEntryValue(std::string_view text);

/// A path as an argument of an Exec key, quoted and escaped.
[[nodiscard]] std::string quotedExecArgument(std::string_view path);

} // namespace tavrel
