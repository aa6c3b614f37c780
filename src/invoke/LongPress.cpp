#include "invoke/LongPress.h"

#include "platform/Platform.h"
#include "platform/Presenter.h"

namespace tavrel {

namespace {
bool isNear(Point one, Point other) {
  const double across = one.x - other.x;
  const double up = one.y - other.y;
  return across * across + up * up <= LongPress::slop * LongPress::slop;
}
} // namespace

LongPress::~LongPress() {
  end();
  if (isWatching_)
    platform().eventMonitor.installButtonHandler({});
}

OSStatus LongPress::watch() {
  const OSStatus status = platform().eventMonitor.installButtonHandler(
      [this](ButtonChange change) { buttonsChanged(change); });
  isWatching_ = status == 0;
  return status;
}

void LongPress::buttonsChanged(ButtonChange change) {
  switch (change) {
  case ButtonChange::primaryPressed:
    return begin();
  case ButtonChange::moved:
    return followPointer();
  case ButtonChange::primaryReleased:
  case ButtonChange::otherPressed:
    return end();
  }
}

void LongPress::begin() {
  end();
  const float seconds = actions_.interval();
  if (isOpen_ || !(seconds > 0))
    return;
  stopBeep(seconds);
  press_ = {platform().presenter.pointerLocation(),
            platform().clock.schedule(seconds, [this] { intervalPassed(); })};
}

void LongPress::end() {
  if (press_)
    platform().clock.cancel(press_->timer);
  press_.reset();
}

void LongPress::followPointer() {
  if (press_ && !isNear(press_->where, platform().presenter.pointerLocation()))
    end();
}

void LongPress::intervalPassed() {
  followPointer();
  if (!press_)
    return;
  const Point where = press_->where;
  press_.reset();
  if (!actions_.isTarget(where))
    return;
  isOpen_ = true; // a press inside the menu starts no long press
  actions_.open();
  isOpen_ = false;
}

/// Once for the presses of a double click: silencing twice would bring the sound back.
void LongPress::stopBeep(float seconds) {
  const double now = platform().clock.now();
  if (now < quietUntil_)
    return;
  quietUntil_ = now + static_cast<double>(seconds);
  actions_.stopBeepFor(seconds);
}

} // namespace tavrel
