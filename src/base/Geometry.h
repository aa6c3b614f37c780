#pragma once

namespace tavrel {

/// A place on the screen or in a view, in points.
struct Point {
  double x = 0;
  double y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

/// A width and a height, in points.
struct Size {
  double width = 0;
  double height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

/// The size of every icon in a menu.
inline constexpr Size menuIconSize{16.0, 16.0};

} // namespace tavrel
