#include "platform/linux/x11/gestures/LinuxEventMonitor.h"

#include "platform/linux/x11/gestures/GestureKeyBuffer.h"
#include "platform/linux/x11/gestures/RawInput.h"
#include "platform/linux/x11/keyboard/KeyboardGrab.h"
#include "platform/linux/x11/keystrokes/OwnKeystrokes.h"
#include "platform/linux/x11/windows/ScreenLock.h"

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

LinuxEventMonitor::LinuxEventMonitor(OwnKeystrokes& own, GestureKeyBuffer* keyBuffer)
    : own_(own), keyBuffer_(keyBuffer) {}

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
  notifier_ = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(&input_->connection()),
                                                QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, &context_, [this] {
    readEvents();
    deliverChanges();
  });
  own_.setBoundaryListener([this] { readUpToNow(); });
  readUpToNow(); // the notifier is silent about what came along with the replies above
  return true;
}

bool LinuxEventMonitor::tapIsInterrupted() {
  if (!delivered_.press)
    return false;
  doubleTapForecast_.noteQuery(delivered_.press);
  readUpToNow();
  return delivered_.press->interrupted;
}

void LinuxEventMonitor::readUpToNow() {
  if (!input_)
    return;
  input_->waitUntilUpToDate();
  readEvents();
  if (!taps_->changes.empty())
    deliverLater();
}

void LinuxEventMonitor::readEvents() {
  if (!input_)
    return;
  const auto ownDevices =
      own_.areBeingPosted() ? input_->programDevices() : std::set<std::uint16_t>();
  while (const auto event = input_->next())
    if (!ownDevices.contains(event->source))
      apply(*event);
  if (!input_->hasFailed())
    return;
  qCWarning(monitorLog, "the display is gone: its modifier keys are not seen any more");
  notifier_->setEnabled(false);
  taps_->changes.clear();
  input_.reset();
}

void LinuxEventMonitor::apply(const RawInputEvent& event) {
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

// Handlers may run the event loop, and so call this once more: an item at work may show a dialog,
// over which the menu can be called up like anywhere else. What is pressed in a menu that a handler
// shows is the menu's.
void LinuxEventMonitor::deliverChanges() {
  if (deliveries_ > 0 && KeyboardGrab::isHeld())
    return taps_->changes.clear();
  ++deliveries_;
  while (taps_ && !taps_->changes.empty()) {
    const ModifierChange before = std::exchange(delivered_, taps_->changes.front());
    taps_->changes.pop_front();
    if (!isScreenLocked(input_->connection())) // nothing opens over the password prompt
      callHandlers();
    delivered_ = before;
  }
  --deliveries_;
}

void LinuxEventMonitor::callHandlers() {
  const bool mayBeDoubleTap = keyBuffer_ && doubleTapForecast_.isSecondPress(delivered_.press);
  if (mayBeDoubleTap) {
    keyBuffer_->start();
    keyBuffer_->actionBegins();
  }
  for (const auto& handler : handlers_)
    handler();
  if (mayBeDoubleTap)
    keyBuffer_->actionEnds();
}

void LinuxEventMonitor::deliverLater() {
  QTimer::singleShot(0, &context_, [this] { deliverChanges(); });
}

} // namespace tavrel
