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

/// The mouse events of our own windows. Those that match are withheld from their windows while one
/// is waited for; what is not taken out of the queue goes on to its window once nobody waits.
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
  void passOn();

  Clock& clock_;
  std::uint64_t awaited_ = 0; ///< types that are waited for now
  std::deque<Withheld> withheld_;
};

} // namespace tavrel
