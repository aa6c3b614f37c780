#pragma once

#include <cstddef>
#include <vector>

namespace tavrel {

enum class ScrollDirection { up, down };

/// The part of a long list of rows that a level shows, as numbers of pixels. An arrow covers the
/// first or last of them where there is more in its direction.
class RowWindow {
public:
  struct Span {
    std::size_t first = 0;
    std::size_t count = 0;
    int shift = 0; ///< where the first row begins: 0 or above the view
  };

  /// The top of each row, and below them all the bottom of the last one. Stays where it is.
  void setTops(std::vector<int> tops);
  void setView(int height, int arrowHeight);

  [[nodiscard]] int totalHeight() const { return tops_.empty() ? 0 : tops_.back(); }
  [[nodiscard]] int viewHeight() const { return view_; }
  [[nodiscard]] bool canScroll(ScrollDirection direction) const;
  [[nodiscard]] Span span() const;

  /// So many more rows, aligned with the arrow in that direction.
  void scroll(ScrollDirection direction, std::size_t rows);
  /// Scrolls as little as it takes for a row to be seen whole.
  void reveal(std::size_t row);
  /// The row a page away.
  [[nodiscard]] std::size_t pageAway(std::size_t row, ScrollDirection direction) const;

private:
  [[nodiscard]] std::size_t rowCount() const { return tops_.empty() ? 0 : tops_.size() - 1; }
  [[nodiscard]] int limit() const;
  [[nodiscard]] int seenTop() const;
  [[nodiscard]] int seenBottom() const;
  [[nodiscard]] std::size_t rowAt(int y) const;
  void scrollTo(int offset);

  std::vector<int> tops_;
  int offset_ = 0;
  int view_ = 0;
  int arrow_ = 0;
};

} // namespace tavrel
