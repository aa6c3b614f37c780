#include "platform/linux/menus/RowWindow.h"

#include <algorithm>

namespace tavrel {

void RowWindow::setTops(std::vector<int> tops) {
  tops_ = std::move(tops);
  scrollTo(offset_);
}

void RowWindow::setView(int height, int arrowHeight) {
  view_ = std::max(height, 0);
  arrow_ = arrowHeight;
  scrollTo(offset_);
}

bool RowWindow::canScroll(ScrollDirection direction) const {
  return direction == ScrollDirection::up ? offset_ > 0 : offset_ < limit();
}

RowWindow::Span RowWindow::span() const {
  if (rowCount() == 0)
    return {};
  const std::size_t first = rowAt(offset_);
  const std::size_t last = rowAt(offset_ + std::max(view_, 1) - 1);
  return {first, last - first + 1, tops_[first] - offset_};
}

void RowWindow::scroll(ScrollDirection direction, std::size_t rows) {
  if (!canScroll(direction))
    return;
  if (direction == ScrollDirection::up) {
    const std::size_t hidden = rowAt(seenTop() - 1); // the last one that is not visible as a whole
    scrollTo(tops_[hidden - std::min(hidden, rows - 1)] - arrow_);
  } else {
    const std::size_t hidden = rowAt(seenBottom());
    scrollTo(tops_[std::min(hidden + rows, rowCount())] - view_ + arrow_);
  }
}

void RowWindow::reveal(std::size_t row) {
  if (row >= rowCount())
    return;
  if (tops_[row] < seenTop())
    scrollTo(row == 0 ? 0 : tops_[row] - arrow_);
  else if (tops_[row + 1] > seenBottom())
    scrollTo(tops_[row + 1] - view_ + arrow_);
}

std::size_t RowWindow::pageAway(std::size_t row, ScrollDirection direction) const {
  const int page = std::max(view_ - 2 * arrow_, 1);
  return rowAt(direction == ScrollDirection::up ? tops_[row + 1] - 1 - page : tops_[row] + page);
}

int RowWindow::limit() const {
  return std::max(totalHeight() - view_, 0);
}

int RowWindow::seenTop() const {
  return offset_ + (canScroll(ScrollDirection::up) ? arrow_ : 0);
}

int RowWindow::seenBottom() const {
  return offset_ + view_ - (canScroll(ScrollDirection::down) ? arrow_ : 0);
}

std::size_t RowWindow::rowAt(int y) const {
  const auto after = std::upper_bound(tops_.begin(), tops_.end(), y);
  const auto row = static_cast<std::size_t>(std::max<std::ptrdiff_t>(after - tops_.begin() - 1, 0));
  return std::min(row, rowCount() - 1);
}

void RowWindow::scrollTo(int offset) {
  offset_ = std::clamp(offset, 0, limit());
}

} // namespace tavrel
