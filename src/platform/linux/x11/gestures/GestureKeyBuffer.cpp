#include "platform/linux/x11/gestures/GestureKeyBuffer.h"

#include "platform/linux/x11/server/QtConnection.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDeadlineTimer>

#include <xcb/xcb.h>

#include <chrono>
#include <utility>

namespace tavrel {

namespace {
GestureKeyBuffer* currentBuffer = nullptr;
constexpr std::chrono::milliseconds replayTimeout{100};

std::uint32_t hiddenWindow(xcb_connection_t& server) {
  const std::uint32_t window = xcb_generate_id(&server);
  xcb_create_window(&server, 0, window, rootWindow(server), -1, -1, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
  return window;
}

bool isMarker(const xcb_generic_event_t& event, std::uint32_t window, std::uint32_t marker) {
  const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
  return (event.response_type & 0x7f) == XCB_CLIENT_MESSAGE && message.window == window &&
         message.data.data32[0] == marker;
}
} // namespace

GestureKeyBuffer::GestureKeyBuffer(Replay replay) : replay_(std::move(replay)) {
  stopTimer_.setSingleShot(true);
  stopTimer_.callOnTimeout([this] { stop(); });
  xcb_connection_t* server = qtConnection();
  if (!server)
    return;
  watchdog_ = std::make_unique<KeyboardGrabWatchdog>(*server);
  markerWindow_ = hiddenWindow(*server);
  const auto* loop = QAbstractEventDispatcher::instance();
  QObject::connect(loop, &QAbstractEventDispatcher::awake, &stopTimer_,
                   [this] { watchdog_->becomesBusy(); });
  QObject::connect(loop, &QAbstractEventDispatcher::aboutToBlock, &stopTimer_,
                   [this] { watchdog_->becomesIdle(); });
  QCoreApplication::instance()->installNativeEventFilter(this);
  currentBuffer = this;
}

GestureKeyBuffer::~GestureKeyBuffer() {
  if (currentBuffer == this)
    currentBuffer = nullptr;
}

void GestureKeyBuffer::start() {
  if (currentBuffer != this || phase_ == Phase::buffering || KeyboardGrab::isHeld())
    return; // an open menu has the keyboard already
  phase_ = Phase::buffering;
  grab_.emplace();
}

void GestureKeyBuffer::actionBegins() {
  if (phase_ == Phase::buffering)
    stopTimer_.start(0);
}

// Timers of zero fire in the order in which they were started: one that carries the action out
// comes first.
void GestureKeyBuffer::actionEnds() {
  if (phase_ == Phase::buffering)
    stopTimer_.start(0);
}

void GestureKeyBuffer::stop() {
  if (phase_ != Phase::buffering)
    return;
  grab_.reset();
  drainQueuedKeys();
}

// Key events that came during the grab lie before the message in the toolkit's queue.
void GestureKeyBuffer::drainQueuedKeys() {
  phase_ = Phase::draining;
  downAfterKeys_ = KeyboardGrab::downAtLastRelease();
  xcb_connection_t* server = qtConnection();
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = markerWindow_;
  message.data.data32[0] = ++lastMarker_;
  xcb_send_event(server, 0, markerWindow_, XCB_EVENT_MASK_NO_EVENT,
                 reinterpret_cast<const char*>(&message));
  xcb_flush(server);
}

RecordedKeyEvents GestureKeyBuffer::handOverToMenu() {
  if (!currentBuffer)
    return {};
  GestureKeyBuffer& buffer = *currentBuffer;
  buffer.stopTimer_.stop();
  buffer.phase_ = Phase::idle;
  buffer.grab_.reset();
  buffer.watchdog_->setMenuIsOpen(true);
  KeyboardGrab::take(); // the watchdog may have released it a moment ago
  return std::exchange(buffer.keys_, {});
}

void GestureKeyBuffer::takeBackFromMenu(const RecordedKeyEvents& unused) {
  if (!currentBuffer)
    return;
  currentBuffer->watchdog_->setMenuIsOpen(false);
  RecordedKeyEvents& keys = currentBuffer->keys_;
  keys.insert(keys.end(), unused.begin(), unused.end());
  currentBuffer->drainQueuedKeys();
}

void GestureKeyBuffer::waitForReplay() {
  const QDeadlineTimer deadline(replayTimeout);
  while (currentBuffer && currentBuffer->phase_ == Phase::draining &&
         !currentBuffer->keys_.empty() && !deadline.hasExpired())
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

bool GestureKeyBuffer::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  if (phase_ == Phase::idle || type != "xcb_generic_event_t")
    return false;
  const auto& event = *static_cast<const xcb_generic_event_t*>(message);
  if (phase_ == Phase::draining && isMarker(event, markerWindow_, lastMarker_)) {
    replayKeys();
    return true;
  }
  if (!isKeyEvent(event))
    return false;
  keys_.push_back(reinterpret_cast<const xcb_key_press_event_t&>(event));
  return true;
}

void GestureKeyBuffer::replayKeys() {
  phase_ = Phase::idle;
  const RecordedKeyEvents keys = inTheirOrder(std::exchange(keys_, {}));
  if (!keys.empty())
    replay_(keys, downAfterKeys_);
}

} // namespace tavrel
