#include "platform/linux/x11/gestures/LinuxEventQueue.h"

#include "platform/linux/x11/gestures/MouseEvents.h"
#include "platform/linux/x11/server/QtConnection.h"
#include "platform/linux/x11/server/XcbReply.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QTimer>

#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>

namespace tavrel {

namespace {
constexpr double longestPoll = 86400; ///< seconds

bool matches(std::uint64_t mask, const Event& event) {
  return ((mask >> static_cast<unsigned>(event.type)) & 1U) != 0;
}
} // namespace

LinuxEventQueue::LinuxEventQueue(Clock& clock) : clock_(clock) {
  QCoreApplication::instance()->installEventFilter(this);
}

LinuxEventQueue::~LinuxEventQueue() = default;

std::optional<Event> LinuxEventQueue::nextEvent(std::uint64_t mask, double until, Dequeue dequeue) {
  if (firstOf(mask) == withheld_.end())
    wait(mask, until);
  const auto first = firstOf(mask);
  if (first == withheld_.end())
    return std::nullopt;
  const Event event = first->event;
  if (dequeue == Dequeue::yes)
    withheld_.erase(first);
  QTimer::singleShot(0, this, [this] { forwardWithheld(); });
  return event;
}

std::deque<LinuxEventQueue::Withheld>::iterator LinuxEventQueue::firstOf(std::uint64_t mask) {
  return std::find_if(withheld_.begin(), withheld_.end(),
                      [&](const Withheld& each) { return matches(mask, each.event); });
}

void LinuxEventQueue::wait(std::uint64_t mask, double until) {
  const QScopedValueRollback awaited(awaitedTypes_, mask);
  QEventLoop loop;
  loop.processEvents();
  const double left = std::clamp(until - clock_.now(), 0.0, longestPoll);
  QTimer deadline;
  deadline.setTimerType(Qt::PreciseTimer);
  QObject::connect(&deadline, &QTimer::timeout, &loop, &QEventLoop::quit);
  deadline.start(std::chrono::ceil<std::chrono::milliseconds>(std::chrono::duration<double>(left)));
  while (firstOf(mask) == withheld_.end() && clock_.now() < until)
    loop.processEvents(QEventLoop::WaitForMoreEvents);
}

bool LinuxEventQueue::eventFilter(QObject* watched, QEvent* event) {
  auto* window = qobject_cast<QWindow*>(watched);
  const auto* mouse = dynamic_cast<QMouseEvent*>(event);
  if (awaitedTypes_ == 0 || !window || !mouse || !mouse->spontaneous())
    return false;
  auto converted = mouseEvent(*mouse, *window);
  if (!converted || !matches(awaitedTypes_, *converted))
    return false;
  converted->timestamp = clock_.now();
  withheld_.push_back({*converted, window, std::unique_ptr<QMouseEvent>(mouse->clone())});
  return true;
}

void LinuxEventQueue::forwardWithheld() {
  if (awaitedTypes_ != 0)
    return; // called from a wait, whose caller may still ask for them
  for (auto& each : std::exchange(withheld_, {}))
    if (each.window)
      QCoreApplication::postEvent(each.window, each.original.release());
}

std::uint32_t LinuxEventQueue::currentButtonState() {
  xcb_connection_t* server = qtConnection();
  const auto pointer = xcbReply(
      server
          ? xcb_query_pointer_reply(server, xcb_query_pointer(server, rootWindow(*server)), nullptr)
          : nullptr);
  const unsigned mask = pointer ? pointer->mask : 0;
  const auto bit = [&](unsigned button, unsigned place) {
    return (mask & button) != 0 ? 1U << place : 0U;
  };
  return bit(XCB_BUTTON_MASK_1, 0) | bit(XCB_BUTTON_MASK_3, 1) | bit(XCB_BUTTON_MASK_2, 2);
}

} // namespace tavrel
