#pragma once

#include "platform/linux/menus/LevelRows.h"
#include "platform/linux/menus/LevelWidth.h"

#include <array>

class QAction;
class QFontMetrics;
class QMenu;
class QWidget;

namespace tavrel {

/// The layout of a long level in pixels, as the toolkit would make it if it had all the rows.
struct LevelMetrics {
  int width = 0;
  int left = 0;  ///< where rows begin
  int top = 0;   ///< where the first row begins
  int frame = 0; ///< the height of the level without its rows
  int arrow = 0; ///< the height of the arrows shown where there are more rows
  int shortcutWidth = 0;
  std::array<int, 3> heights{}; ///< by RowKind
};

/// `sample` is a widget with the style, the font and the mark columns of the level.
[[nodiscard]] LevelMetrics measureLevel(const LevelRows& rows, const QWidget& sample);

/// The top of each row, and the bottom of the last one.
[[nodiscard]] std::vector<int> rowTops(const LevelRows& rows, const LevelMetrics& metrics);

/// Makes an action of the toolkit look like an entry; its submenu may be null.
void showEntry(QAction& action, const MenuItem& item, MarkColumns columns,
               const QFontMetrics& metrics, QMenu* submenu);

} // namespace tavrel
