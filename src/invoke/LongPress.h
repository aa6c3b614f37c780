#pragma once

#include "base/Geometry.h"
#include "platform/Clock.h"
#include "platform/EventMonitor.h"

#include <functional>
#include <optional>

namespace tavrel {

/// What a long press asks and does.
struct LongPressActions {
  std::function<float()> interval;     ///< seconds, asked at each press; 0 or less: no long presses
  std::function<bool(Point)> isTarget; ///< whether a press there counts
  std::function<void(float)> stopBeepFor; ///< silences the beep for so many seconds
  std::function<void()> open; ///< opens the pop-up; may run the event loop until it has closed
};

/// Tells a long press of the primary button: held for the interval, in one place, with no other
/// button. The press itself goes to the application under the pointer as ever.
class LongPress {
public:
  /// How far the pointer may stray from where the button went down, in points.
  static constexpr double slop = 5;

  explicit LongPress(LongPressActions actions) : actions_(std::move(actions)) {}
  ~LongPress();
  LongPress(const LongPress&) = delete;
  LongPress& operator=(const LongPress&) = delete;

  /// Watches the buttons from now on, as long as it lives. 0 when that is possible.
  OSStatus watch();
  void buttonsChanged(ButtonChange change);

private:
  struct Press {
    Point where;
    TimerId timer = 0;
  };

  void begin();
  void end();
  void followPointer();
  void intervalPassed();
  void stopBeep(float seconds);

  LongPressActions actions_;
  std::optional<Press> press_;
  double quietUntil_ = 0;
  bool isOpen_ = false;
  bool isWatching_ = false;
};

} // namespace tavrel
