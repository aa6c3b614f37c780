#include "invoke/DragDetection.h"

#include "invoke/LiveInput.h"
#include "platform/Clock.h"
#include "platform/EventQueue.h"
#include "platform/Platform.h"

namespace tavrel {

namespace {
constexpr double waitWithoutDate = 2.0; // seconds

constexpr std::uint64_t maskOf(EventType type) {
  return std::uint64_t{1} << static_cast<unsigned>(type);
}
constexpr std::uint64_t upOrDragged =
    maskOf(EventType::leftMouseUp) | maskOf(EventType::leftMouseDragged);

struct Square {
  Point center;
  double slop;
};

// A square holds its left edge and the edge that is on top in the view's own direction, and not the
// two others.
bool contains(const Square& square, Point point, Flippedness flippedness) {
  const double x = point.x - square.center.x;
  const double y = point.y - square.center.y;
  const double slop = square.slop;
  const bool inHeight =
      flippedness == Flippedness::downwards ? y >= -slop && y < slop : y > -slop && y <= slop;
  return x >= -slop && x < slop && inHeight;
}
} // namespace

bool isDragEvent(const Event& event, Flippedness forView, float dragSlop,
                 std::optional<double> timeOut) {
  if (event.type != EventType::leftMouseDown)
    return false;
  EventQueue& queue = platform().eventQueue;
  const Square square{event.location, dragSlop};
  for (;;) {
    const double until = timeOut.value_or(platform().clock.now() + waitWithoutDate);
    const auto next = queue.nextEvent(upOrDragged, until, Dequeue::no);
    if (!next && (timeOut || !isMouseButtonDown()))
      return false;
    if (!next ||
        (next->type != EventType::leftMouseUp && next->type != EventType::leftMouseDragged))
      continue;
    if (next->type == EventType::leftMouseUp)
      return false;
    (void)queue.nextEvent(maskOf(EventType::leftMouseDragged), until, Dequeue::yes);
    if (!contains(square, next->location, forView))
      return true;
  }
}

} // namespace tavrel
