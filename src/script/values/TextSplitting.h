#pragma once

#include "script/values/Runtime.h"

#include <optional>

namespace tavrel::script {

/// A part of a text, in bytes.
struct TextPart {
  std::size_t start = 0;
  std::size_t length = 0;
};

/// Parts in order; they count as memory of the run.
class TextParts {
public:
  explicit TextParts(Heap& heap) : loan_(heap) {}
  void add(const TextPart& part);
  [[nodiscard]] std::size_t size() const { return parts_.size(); }
  [[nodiscard]] const TextPart& operator[](std::size_t place) const { return parts_[place]; }
  [[nodiscard]] TextPart& last() { return parts_.back(); }
  [[nodiscard]] auto begin() const { return parts_.begin(); }
  [[nodiscard]] auto end() const { return parts_.end(); }

private:
  std::vector<TextPart> parts_;
  std::size_t counted_ = 0;
  Loan loan_;
};

/// The characters, words, paragraphs or text items of a text in order; nothing for a class that
/// texts have no elements of. Text items are what stands between the run's delimiters.
[[nodiscard]] std::optional<TextParts> partsOf(Runtime& runtime, const std::string& text,
                                               std::string_view type);

} // namespace tavrel::script
