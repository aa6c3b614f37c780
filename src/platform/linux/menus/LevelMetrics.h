#pragma once

#include "platform/linux/menus/LevelRows.h"
#include "platform/linux/menus/LevelWidth.h"

#include <array>

class QAction;
class QFontMetrics;
class QMenu;
class QWidget;

namespace tavrel {

/// How a long level is laid out, as the toolkit would do it with every row in hand. In pixels.
struct LevelMetrics {
  int width = 0;
  int left = 0;  ///< where rows begin
  int top = 0;   ///< where the first row begins
  int frame = 0; ///< what the level is higher than its rows
  int arrow = 0; ///< the height of the arrows that tell of more rows
  int shortcutWidth = 0;
  std::array<int, 3> heights{}; ///< by RowKind
};

/// `like` has the style, the font and the mark columns of the level.
[[nodiscard]] LevelMetrics measureLevel(const LevelRows& rows, const QWidget& like);

/// The top of each row, and the bottom of the last one.
[[nodiscard]] std::vector<int> rowTops(const LevelRows& rows, const LevelMetrics& metrics);

/// Makes an action of the toolkit look like an entry; its submenu may be null.
void showEntry(QAction& action, const MenuItem& item, MarkColumns columns,
               const QFontMetrics& metrics, QMenu* submenu);

} // namespace tavrel
