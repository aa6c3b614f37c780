#include "platform/linux/x11/gestures/LinuxEventMonitor.h"

#include "platform/linux/x11/gestures/GestureKeyBuffer.h"
#include "platform/linux/x11/gestures/RawInput.h"
#include "platform/linux/x11/keystrokes/OwnKeystrokes.h"

#include <QLoggingCategory>
#include <QSocketNotifier>
#include <QTimer>

#include <xcb/xcb.h>

#include <utility>

namespace tavrel {

namespace {
Q_LOGGING_CATEGORY(monitorLog, "tavrel.monitor")

constexpr OSStatus notHandled = -9874;
} // namespace

LinuxEventMonitor::LinuxEventMonitor(OwnKeystrokes& own, GestureKeyBuffer* hold)
    : own_(own), hold_(hold) {}

LinuxEventMonitor::~LinuxEventMonitor() {
  own_.setBoundaryListener({});
}

OSStatus LinuxEventMonitor::installModifierHandler(std::function<void()> changed) {
  if (!input_ && !open()) {
    qCWarning(monitorLog, "this display does not tell of its modifier keys");
    return notHandled;
  }
  handlers_.push_back(std::move(changed));
  return 0;
}

bool LinuxEventMonitor::open() {
  input_ = RawInput::create();
  if (!input_)
    return false;
  taps_ = std::make_unique<ModifierTaps>(serverModifiers(input_->connection()));
  arrival_ = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(&input_->connection()),
                                               QSocketNotifier::Read);
  QObject::connect(arrival_.get(), &QSocketNotifier::activated, &eventLoop_, [this] {
    read();
    deliver();
  });
  own_.setBoundaryListener([this] { readUpToNow(); });
  readUpToNow(); // what came during the questions above is not announced any more
  return true;
}

bool LinuxEventMonitor::tapIsInterrupted() {
  if (!told_.press)
    return false;
  doubleTapForecast_.lookedAt(told_.press);
  readUpToNow();
  return told_.press->interrupted;
}

void LinuxEventMonitor::readUpToNow() {
  if (!input_)
    return;
  input_->waitUntilUpToDate();
  read();
  if (!taps_->changes.empty())
    deliverLater();
}

void LinuxEventMonitor::read() {
  if (!input_)
    return;
  const auto ours = own_.areBeingPosted() ? input_->programDevices() : std::set<std::uint16_t>();
  while (const auto event = input_->next())
    if (!ours.contains(event->source))
      take(*event);
  if (!input_->hasFailed())
    return;
  qCWarning(monitorLog, "the display is gone: its modifier keys are not seen any more");
  arrival_->setEnabled(false);
  input_.reset();
}

void LinuxEventMonitor::take(const RawInputEvent& event) {
  switch (event.kind) {
  case RawInputKind::keyDown:
    return taps_->keyDown(event.detail, event.time);
  case RawInputKind::keyUp:
    return taps_->keyUp(event.detail);
  case RawInputKind::buttonDown:
    return taps_->buttonDown(event.detail);
  case RawInputKind::buttonUp:
    return taps_->buttonUp(event.detail);
  case RawInputKind::mappingChanged:
    return taps_->setModifiers(serverModifiers(input_->connection()));
  }
}

// A handler may run the event loop and so come here again.
void LinuxEventMonitor::deliver() {
  if (std::exchange(delivering_, true))
    return;
  while (!taps_->changes.empty()) {
    told_ = taps_->changes.front();
    taps_->changes.pop_front();
    tell();
    told_ = {};
  }
  delivering_ = false;
}

void LinuxEventMonitor::tell() {
  const bool holds = hold_ && doubleTapForecast_.isSecond(told_.press);
  if (holds) {
    hold_->begin();
    hold_->actBegins();
  }
  for (const auto& handler : handlers_)
    handler();
  if (holds)
    hold_->actEnds();
}

void LinuxEventMonitor::deliverLater() {
  QTimer::singleShot(0, &eventLoop_, [this] { deliver(); });
}

} // namespace tavrel
