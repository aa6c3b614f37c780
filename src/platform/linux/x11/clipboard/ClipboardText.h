#pragma once

#include "base/PropertyList.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// Text that programs put on the clipboard, as UTF-8: UTF-16 when it begins with a byte order mark,
/// else Latin-1 when `type` is STRING or the bytes are not valid UTF-8. NUL bytes at the end are
/// left out: some programs add one.
[[nodiscard]] std::string clipboardText(const Bytes& bytes, std::string_view type);

/// The same for UTF-16 in little-endian order, with or without a mark.
[[nodiscard]] std::string clipboardTextUtf16(const Bytes& bytes);

/// For readers of STRING: Latin-1, with a question mark for what it does not have.
[[nodiscard]] Bytes latin1OfText(std::string_view utf8);

/// The URLs of text/uri-list or x-special/gnome-copied-files, one a line.
[[nodiscard]] std::vector<std::string> urlsOfList(std::string_view text);

} // namespace tavrel
