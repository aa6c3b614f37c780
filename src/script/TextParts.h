#pragma once

#include "script/Runtime.h"

#include <optional>

namespace tavrel::script {

/// A part of a text, in bytes.
struct TextPart {
  std::size_t start = 0;
  std::size_t length = 0;
};

/// The characters, words, paragraphs or text items of a text in order; nothing for a class that
/// texts have no elements of. Text items are what stands between the run's delimiters.
[[nodiscard]] std::optional<std::vector<TextPart>>
partsOf(Runtime& runtime, const std::string& text, std::string_view type);

} // namespace tavrel::script
