#pragma once

#include "base/Geometry.h"

namespace tavrel {

/// The unseen panel under the pointer that a pop-up hangs from; while it is visible, the menu was
/// opened as a pop-up.
struct PopupPanel {
  Point origin; ///< bottom left corner, origin at the bottom left of the main screen
  double alpha = 1.0;
  bool opaque = true;
  bool visible = true;
};

} // namespace tavrel
