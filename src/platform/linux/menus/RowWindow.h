#pragma once

#include <cstddef>
#include <vector>

namespace tavrel {

enum class ScrollDirection { up, down };

/// The visible section of a long list of rows, computed in pixels (a virtual list). Where there are
/// more rows above or below, a scroll arrow covers that edge.
class RowWindow {
public:
  /// The visible rows.
  struct Span {
    std::size_t first = 0;
    std::size_t count = 0;
    int shift = 0; ///< where the first row begins: 0, or negative when it is cut off
  };

  /// The top of each row, and at the end the bottom of the last one. The scroll position stays.
  void setTops(std::vector<int> tops);
  void setView(int height, int arrowHeight);

  [[nodiscard]] int totalHeight() const { return tops_.empty() ? 0 : tops_.back(); }
  [[nodiscard]] int viewHeight() const { return view_; }
  [[nodiscard]] bool canScroll(ScrollDirection direction) const;
  [[nodiscard]] Span span() const;

  /// Scrolls by that many rows, so that a whole row is beside the arrow in that direction.
  void scroll(ScrollDirection direction, std::size_t rows);
  /// Scrolls as little as needed to make a row visible as a whole.
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
