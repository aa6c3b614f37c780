#include "platform/linux/x11/gestures/LinuxEventMonitor.h"

#include "platform/linux/x11/gestures/GestureKeyBuffer.h"
#include "platform/linux/x11/gestures/RawInput.h"
#include "platform/linux/x11/keyboard/KeyboardGrab.h"
#include "platform/linux/x11/keyboard/KeysDown.h"
#include "platform/linux/x11/keystrokes/OwnKeystrokes.h"
#include "platform/linux/x11/server/QtConnection.h"
#include "platform/linux/x11/server/XcbReply.h"
#include "platform/linux/x11/windows/ScreenLock.h"

#include <QDeadlineTimer>
#include <QLoggingCategory>
#include <QSocketNotifier>
#include <QTimer>

#include <poll.h>
#include <xcb/xcb.h>

#include <utility>

namespace tavrel {

namespace {
Q_LOGGING_CATEGORY(monitorLog, "tavrel.monitor")

constexpr OSStatus notHandled = -9874;

bool isReleasedInTime(const ModifierChange& change) {
  return change.sequel->kind == SequelKind::released &&
         change.sequel->time - change.time < static_cast<std::uint32_t>(longestTap * 1000);
}

// Those that the server has a bit for.
std::set<std::uint32_t> buttonsDown(xcb_connection_t& connection) {
  const auto pointer = xcbReply(xcb_query_pointer_reply(
      &connection, xcb_query_pointer(&connection, rootWindow(connection)), nullptr));
  std::set<std::uint32_t> buttons;
  for (std::uint32_t button = 1; pointer && button <= 5; ++button)
    if ((pointer->mask >> (7 + button) & 1U) != 0)
      buttons.insert(button);
  return buttons;
}

constexpr int mostTurns = 10; // keys may come without end

ServerKeySet withAnotherKey(ServerKeySet keys) {
  return keys.set(noServerKey);
}
} // namespace

LinuxEventMonitor::LinuxEventMonitor(OwnKeystrokes& own, GestureKeyBuffer* keyBuffer)
    : own_(own), keyBuffer_(keyBuffer) {}

LinuxEventMonitor::~LinuxEventMonitor() {
  own_.setBoundaryListener({});
}

OSStatus LinuxEventMonitor::installModifierHandler(std::function<void(double)> changed) {
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
  taps_ = std::make_unique<ModifierTaps>(serverModifiers(input_->connection()),
                                         keysDown(input_->connection()).value_or(ServerKeySet()));
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

KeysOfEvent LinuxEventMonitor::keysOfEvent() {
  return {[this] { return keysAfterChange(); }, [this] { return nextKeys(); }};
}

std::optional<ServerKeySet> LinuxEventMonitor::keysAfterChange() const {
  return delivery_ && delivery_->told != Told::sequel ? std::optional(delivery_->change.down)
                                                      : std::nullopt;
}

// The core asks until the key that went down is up, to measure how long it was held. By the time it
// asks, the key may long be up and down again.
std::optional<ServerKeySet> LinuxEventMonitor::nextKeys() {
  if (!delivery_ || delivery_->told == Told::sequel)
    return std::nullopt;
  const ModifierChange change = delivery_->change;
  if (change.pressed != 0)
    doubleTapForecast_.noteQuery(change);
  readUpToNow();
  if (delivery_->told == Told::nothing && change.sequel->kind != SequelKind::interrupted) {
    delivery_->told = Told::change;
    return change.down;
  }
  awaitSequel();
  delivery_->told = Told::sequel;
  return isReleasedInTime(change) ? change.sequel->down : withAnotherKey(change.down);
}

void LinuxEventMonitor::awaitSequel() {
  const auto sequel = delivery_->change.sequel;
  const QDeadlineTimer end(static_cast<int>(longestTap * 1000));
  do {
    readUpToNow();
    if (sequel->kind != SequelKind::none || !input_)
      return;
    pollfd events{xcb_get_file_descriptor(&input_->connection()), POLLIN, 0};
    ::poll(&events, 1, static_cast<int>(end.remainingTime()));
  } while (!end.hasExpired());
  readUpToNow();
}

void LinuxEventMonitor::readUpToNow() {
  synchronize();
  if (taps_ && !taps_->changes.empty())
    deliverLater();
}

// What was read last is the truth if no event came after it.
void LinuxEventMonitor::synchronize() {
  for (int turn = 0; turn < mostTurns && input_; ++turn) {
    const std::set<std::uint32_t> buttons = buttonsDown(input_->connection());
    const auto down = keysDown(input_->connection());
    if (!readEvents() && input_ && down)
      return taps_->synchronize(*down, buttons);
  }
}

bool LinuxEventMonitor::readEvents() {
  if (!input_)
    return false;
  bool isAny = false;
  const auto ownDevices =
      own_.areBeingPosted() ? input_->programDevices() : std::set<std::uint16_t>();
  while (const auto event = input_->next()) {
    isAny = true;
    if (!ownDevices.contains(event->source))
      apply(*event);
  }
  if (input_->hasFailed())
    giveUp();
  return isAny;
}

void LinuxEventMonitor::giveUp() {
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
    return taps_->keyUp(event.detail, event.time);
  case RawInputKind::buttonDown:
    return taps_->buttonDown(event.detail, event.time);
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
  for (int turn = 0; turn < mostTurns && taps_ && !taps_->changes.empty(); ++turn) {
    const auto before = std::exchange(delivery_, Delivery{taps_->changes.front()});
    taps_->changes.pop_front();
    if (!isScreenLocked(input_->connection())) // nothing opens over the password prompt
      callHandlers();
    delivery_ = before;
    synchronize(); // the notifier is silent about what came along with replies meanwhile
  }
  --deliveries_;
  if (taps_ && !taps_->changes.empty())
    deliverLater(); // after signals, the bus and the tray
}

void LinuxEventMonitor::callHandlers() {
  const double time = time_.seconds(delivery_->change.time);
  const bool mayBeDoubleTap = keyBuffer_ && doubleTapForecast_.isSecondPress(delivery_->change);
  if (mayBeDoubleTap) {
    keyBuffer_->start();
    keyBuffer_->actionBegins();
  }
  for (std::size_t i = 0; i < handlers_.size(); ++i) {
    const auto handler = handlers_[i];
    delivery_->told = Told::nothing;
    handler(time);
  }
  if (mayBeDoubleTap)
    keyBuffer_->actionEnds();
}

void LinuxEventMonitor::deliverLater() {
  QTimer::singleShot(0, &context_, [this] { deliverChanges(); });
}

} // namespace tavrel
