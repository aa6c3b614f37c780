#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

/// Whether the text can stand as a URL (RFC 3986, absolute or relative): only the characters that
/// may stand in one, and only whole percent escapes.
[[nodiscard]] bool isUrl(std::string_view text);

/// The scheme in lower case; empty when there is none.
[[nodiscard]] std::string urlScheme(std::string_view url);

/// The path that a URL names, percent escapes decoded, without a trailing slash ("/" stays).
/// Nothing for a text that is no URL, for a URL without a hierarchy ("mailto:a@b.c") and for
/// escapes that do not make UTF-8.
[[nodiscard]] std::optional<std::string> pathOfUrl(std::string_view url);

/// Whether the thing at a path is a directory, which its file URL shows by a trailing slash.
enum class PathIs { file, directory };

/// The file URL of an absolute path. Nothing is normalised.
[[nodiscard]] std::string fileUrlOfPath(std::string_view path, PathIs what);

} // namespace tavrel
