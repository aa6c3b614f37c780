#include "platform/linux/menus/RowWindow.h"
#include "platform/linux/menus/RowSteps.h"

#include <gtest/gtest.h>

#include <random>

namespace tavrel {
namespace {

/// A hundred rows of ten pixels, seen through fifty; arrows cover four.
RowWindow window() {
  std::vector<int> tops;
  for (int row = 0; row <= 100; ++row)
    tops.push_back(row * 10);
  RowWindow result;
  result.setTops(std::move(tops));
  result.setView(50, 4);
  return result;
}

constexpr auto anyRow = [](std::size_t) { return true; };

TEST(RowWindow, BeginsAtTheTopWithMoreBelow) {
  const RowWindow rows = window();
  EXPECT_EQ(rows.span().first, 0U);
  EXPECT_EQ(rows.span().count, 5U);
  EXPECT_EQ(rows.span().shift, 0);
  EXPECT_FALSE(rows.canScroll(ScrollDirection::up));
  EXPECT_TRUE(rows.canScroll(ScrollDirection::down));
}

TEST(RowWindow, ARevealedRowEndsAtTheArrowBelow) {
  RowWindow rows = window();
  rows.reveal(20);
  EXPECT_EQ(rows.span().first, 16U);
  EXPECT_EQ(rows.span().shift, -4);
  rows.reveal(18);
  EXPECT_EQ(rows.span().first, 16U) << "it is seen already";
}

TEST(RowWindow, ARevealedRowAboveBeginsAtTheArrow) {
  RowWindow rows = window();
  rows.reveal(50);
  rows.reveal(20);
  EXPECT_EQ(rows.span().first, 19U);
  EXPECT_EQ(rows.span().shift, -6);
}

TEST(RowWindow, TheLastRowEndsTheView) {
  RowWindow rows = window();
  rows.reveal(99);
  EXPECT_EQ(rows.span().first, 95U);
  EXPECT_EQ(rows.span().shift, 0);
  EXPECT_FALSE(rows.canScroll(ScrollDirection::down));
}

TEST(RowWindow, ScrollingGoesOnAndStopsAtTheEnds) {
  RowWindow rows = window();
  rows.scroll(ScrollDirection::up, 1);
  EXPECT_EQ(rows.span().first, 0U);
  for (int turn = 0; turn < 200; ++turn)
    rows.scroll(ScrollDirection::down, 1);
  EXPECT_FALSE(rows.canScroll(ScrollDirection::down));
  for (int turn = 0; turn < 200; ++turn)
    rows.scroll(ScrollDirection::up, 1);
  EXPECT_FALSE(rows.canScroll(ScrollDirection::up));
}

TEST(RowWindow, EachScrollShowsAnotherRowWhole) {
  RowWindow rows = window();
  for (std::size_t last = 5; last < 98; ++last) {
    rows.scroll(ScrollDirection::down, 1);
    const RowWindow before = rows;
    rows.reveal(last - 1);
    EXPECT_EQ(rows.span().shift, before.span().shift) << last;
  }
}

TEST(RowWindow, RowsThatAllFitAreAllSeen) {
  RowWindow rows;
  rows.setTops({0, 10, 15, 40});
  rows.setView(40, 4);
  EXPECT_EQ(rows.span().count, 3U);
  EXPECT_FALSE(rows.canScroll(ScrollDirection::down));
}

TEST(RowWindow, NoRowsShowNothing) {
  RowWindow rows;
  rows.setTops({0});
  rows.setView(50, 4);
  rows.reveal(0);
  EXPECT_EQ(rows.span().count, 0U);
}

TEST(RowWindow, AnyRowOfAnyListIsSeenWholeOnceRevealed) {
  std::mt19937 random(7);
  std::vector<int> tops{0};
  for (int row = 0; row < 500; ++row)
    tops.push_back(tops.back() + (random() % 5 == 0 ? 7 : 20));
  RowWindow rows;
  rows.setTops(tops);
  rows.setView(205, 12);
  for (int turn = 0; turn < 2000; ++turn) {
    const std::size_t row = random() % 500;
    rows.reveal(row);
    const RowWindow::Span span = rows.span();
    ASSERT_TRUE(row >= span.first && row < span.first + span.count);
    const int top = tops[row] - tops[span.first] + span.shift;
    ASSERT_GE(top, rows.canScroll(ScrollDirection::up) ? 12 : 0);
    ASSERT_LE(top + tops[row + 1] - tops[row],
              205 - (rows.canScroll(ScrollDirection::down) ? 12 : 0));
  }
}

TEST(RowSteps, UpAndDownGoRoundTheEnds) {
  EXPECT_EQ(rowAfter(RowStep::up, 0, 100, window(), anyRow), 99U);
  EXPECT_EQ(rowAfter(RowStep::down, 99, 100, window(), anyRow), 0U);
  EXPECT_EQ(rowAfter(RowStep::down, std::nullopt, 100, window(), anyRow), 0U);
  EXPECT_EQ(rowAfter(RowStep::up, std::nullopt, 100, window(), anyRow), 99U);
}

TEST(RowSteps, PagesStopAtTheEnds) {
  EXPECT_EQ(rowAfter(RowStep::pageDown, 10, 100, window(), anyRow), 14U);
  EXPECT_EQ(rowAfter(RowStep::pageUp, 14, 100, window(), anyRow), 10U);
  EXPECT_EQ(rowAfter(RowStep::pageDown, 98, 100, window(), anyRow), 99U);
  EXPECT_EQ(rowAfter(RowStep::pageUp, 1, 100, window(), anyRow), 0U);
}

TEST(RowSteps, RowsThatCannotHaveTheHighlightAreSkipped) {
  const auto even = [](std::size_t row) { return row % 2 == 0 && row > 0; };
  EXPECT_EQ(rowAfter(RowStep::down, 2, 100, window(), even), 4U);
  EXPECT_EQ(rowAfter(RowStep::first, 2, 100, window(), even), 2U);
  EXPECT_EQ(rowAfter(RowStep::last, 2, 100, window(), even), 98U);
  EXPECT_EQ(rowAfter(RowStep::down, 98, 100, window(), even), 2U);
}

TEST(RowSteps, WithoutAnyRowForItTheHighlightStays) {
  const auto none = [](std::size_t) { return false; };
  EXPECT_EQ(rowAfter(RowStep::down, 2, 100, window(), none), std::nullopt);
}

} // namespace
} // namespace tavrel
