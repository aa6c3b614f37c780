#pragma once

#include "script/values/Runtime.h"

#include <optional>

namespace tavrel::script {

/// A stretch of a text, in bytes.
struct TextRange {
  std::size_t start = 0;
  std::size_t length = 0;
};

/// Ranges in order; they count as memory of the run.
class TextRanges {
public:
  explicit TextRanges(Heap& heap) : reservation_(heap) {}
  void add(const TextRange& textAt);
  [[nodiscard]] std::size_t size() const { return ranges_.size(); }
  [[nodiscard]] const TextRange& operator[](std::size_t index) const { return ranges_[index]; }
  [[nodiscard]] TextRange& last() { return ranges_.back(); }
  [[nodiscard]] auto begin() const { return ranges_.begin(); }
  [[nodiscard]] auto end() const { return ranges_.end(); }

private:
  std::vector<TextRange> ranges_;
  std::size_t counted_ = 0;
  HeapReservation reservation_;
};

/// Splits a text into its elements of a class: `character`, `word`, `paragraph`, or `text item`,
/// which is what stands between the delimiters of the run; nothing for other classes. The classes
/// `item` and `text` mean characters.
[[nodiscard]] std::optional<TextRanges> splitText(Runtime& runtime, const std::string& text,
                                                  std::string_view type);

} // namespace tavrel::script
