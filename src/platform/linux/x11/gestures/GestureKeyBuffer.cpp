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
GestureKeyBuffer* currentGesture = nullptr;
constexpr std::chrono::milliseconds longestDrain{100};

std::uint32_t hiddenWindow(xcb_connection_t& server) {
  const std::uint32_t window = xcb_generate_id(&server);
  xcb_create_window(&server, 0, window, rootWindow(server), -1, -1, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
  return window;
}

bool isMessageTo(std::uint32_t window, const xcb_generic_event_t& event) {
  return (event.response_type & 0x7f) == XCB_CLIENT_MESSAGE &&
         reinterpret_cast<const xcb_client_message_event_t&>(event).window == window;
}
} // namespace

GestureKeyBuffer::GestureKeyBuffer(GiveBack giveBack) : giveBack_(std::move(giveBack)) {
  soon_.setSingleShot(true);
  soon_.callOnTimeout([this] { end(); });
  xcb_connection_t* server = qtConnection();
  if (!server)
    return;
  guard_ = std::make_unique<KeyboardGrabWatchdog>(*server);
  marker_ = hiddenWindow(*server);
  const auto* loop = QAbstractEventDispatcher::instance();
  QObject::connect(loop, &QAbstractEventDispatcher::awake, &soon_,
                   [this] { guard_->becomesBusy(); });
  QObject::connect(loop, &QAbstractEventDispatcher::aboutToBlock, &soon_,
                   [this] { guard_->becomesIdle(); });
  QCoreApplication::instance()->installNativeEventFilter(this);
  currentGesture = this;
}

GestureKeyBuffer::~GestureKeyBuffer() {
  if (currentGesture == this)
    currentGesture = nullptr;
}

void GestureKeyBuffer::begin() {
  if (currentGesture != this || phase_ == Phase::holding || KeyboardGrab::isHeld())
    return; // a menu that is open has the keyboard already
  phase_ = Phase::holding;
  grab_.emplace();
}

void GestureKeyBuffer::actBegins() {
  if (phase_ == Phase::holding)
    soon_.start(0);
}

// A timer that was to fire at once before this one is started fires before it.
void GestureKeyBuffer::actEnds() {
  if (phase_ == Phase::holding)
    soon_.start(0);
}

void GestureKeyBuffer::end() {
  if (phase_ != Phase::holding)
    return;
  grab_.reset();
  drain();
}

// What came while we held the keyboard lies before the marker in the toolkit's queue.
void GestureKeyBuffer::drain() {
  phase_ = Phase::draining;
  xcb_connection_t* server = qtConnection();
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = marker_;
  xcb_send_event(server, 0, marker_, XCB_EVENT_MASK_NO_EVENT,
                 reinterpret_cast<const char*>(&message));
  xcb_flush(server);
}

RecordedKeyEvents GestureKeyBuffer::handOver() {
  if (!currentGesture)
    return {};
  GestureKeyBuffer& gesture = *currentGesture;
  if (gesture.phase_ == Phase::holding) {
    gesture.soon_.stop();
    gesture.phase_ = Phase::idle;
    gesture.grab_.reset();
  }
  gesture.guard_->setMenuIsOpen(true);
  KeyboardGrab::take(); // the guard may have let go a moment ago
  return std::exchange(gesture.keys_, {});
}

void GestureKeyBuffer::takeBack(const RecordedKeyEvents& unused) {
  if (!currentGesture)
    return;
  currentGesture->guard_->setMenuIsOpen(false);
  RecordedKeyEvents& keys = currentGesture->keys_;
  keys.insert(keys.end(), unused.begin(), unused.end());
  currentGesture->drain();
}

void GestureKeyBuffer::finishTakingBack() {
  const QDeadlineTimer deadline(longestDrain);
  while (currentGesture && currentGesture->phase_ == Phase::draining &&
         !currentGesture->keys_.empty() && !deadline.hasExpired())
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

bool GestureKeyBuffer::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  if (phase_ == Phase::idle || type != "xcb_generic_event_t")
    return false;
  const auto& event = *static_cast<const xcb_generic_event_t*>(message);
  if (phase_ == Phase::draining && isMessageTo(marker_, event)) {
    giveBack();
    return true;
  }
  if (!isKeyEvent(event))
    return false;
  keys_.push_back(reinterpret_cast<const xcb_key_press_event_t&>(event));
  return true;
}

void GestureKeyBuffer::giveBack() {
  phase_ = Phase::idle;
  const RecordedKeyEvents keys = std::exchange(keys_, {});
  if (!keys.empty())
    giveBack_(keys);
}

} // namespace tavrel
