#pragma once

#include "platform/Image.h"

#include <QIcon>

#include <optional>

namespace tavrel {

/// An icon that draws the image anew at each size and scale it is asked for, when it is asked.
[[nodiscard]] QIcon iconFromImage(const Image& image);

/// The columns at the front of a menu's entries: those some entry of the menu needs.
struct MarkColumns {
  bool tick = false;
  bool image = false;
  friend bool operator==(const MarkColumns&, const MarkColumns&) = default;
};

enum class Tick { absent, present };

/// The width of all columns together, in points.
[[nodiscard]] int markWidth(MarkColumns columns);

/// What stands before an entry's title: a tick, an image or both, each in its column.
[[nodiscard]] QIcon markIcon(MarkColumns columns, Tick tick, const std::optional<Image>& image);

} // namespace tavrel
