#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

/// The words of an RTF document (version 1) as UTF-8, paragraphs ended by line feeds. Bytes above
/// 127 are read as Windows-1252. Nothing for a text that is no RTF; a document that breaks off has
/// the words up to there.
[[nodiscard]] std::optional<std::string> textOfRtf(std::string_view rtf);

} // namespace tavrel
