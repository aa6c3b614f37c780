#pragma once

#include "platform/Clock.h"
#include "platform/EventQueue.h"

#include <QObject>
#include <QPointer>
#include <QWindow>

#include <deque>
#include <memory>

class QMouseEvent;

namespace tavrel {

/// The mouse events of this program's own windows. While `nextEvent` waits, those of the types it
/// waits for are withheld from their windows; what is not dequeued is forwarded when the wait is
/// over.
class LinuxEventQueue final : public EventQueue, private QObject {
public:
  explicit LinuxEventQueue(Clock& clock);
  ~LinuxEventQueue() override;

  std::optional<Event> nextEvent(std::uint64_t mask, double until, Dequeue dequeue) override;
  std::uint32_t currentButtonState() override;

private:
  struct Withheld {
    Event event;
    QPointer<QWindow> window;
    std::unique_ptr<QMouseEvent> original;
  };

  bool eventFilter(QObject* watched, QEvent* event) override;
  [[nodiscard]] std::deque<Withheld>::iterator firstOf(std::uint64_t mask);
  void wait(std::uint64_t mask, double until);
  void forwardWithheld();

  Clock& clock_;
  std::uint64_t awaitedTypes_ = 0; ///< bits of the types that `nextEvent` waits for; 0: it does not
  std::deque<Withheld> withheld_;
};

} // namespace tavrel
