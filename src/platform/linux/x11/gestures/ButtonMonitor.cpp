#include "platform/linux/x11/gestures/ButtonMonitor.h"

#include "platform/linux/x11/gestures/RawInput.h"
#include "platform/linux/x11/server/XcbReply.h"
#include "platform/linux/x11/windows/ScreenLock.h"

#include <QLoggingCategory>
#include <QSocketNotifier>

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <optional>

namespace tavrel {

namespace {
Q_LOGGING_CATEGORY(buttonsLog, "tavrel.buttons")
constexpr std::uint32_t primaryButton = 1;
} // namespace

class ButtonMonitor::Connection {
public:
  explicit Connection(std::function<void(ButtonChange)> report) : report_(std::move(report)) {
    extension_ = xcb_connection_has_error(server_) == 0 ? rawEventExtension(*server_) : 0;
    isReady_ = extension_ != 0 && selectRawButtons(*server_, RawMotion::ignored);
    if (isReady_)
      listen();
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() {
    notifier_.reset();
    xcb_disconnect(server_);
  }

  [[nodiscard]] bool isReady() const { return isReady_; }

private:
  void listen() {
    notifier_ =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(server_), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { readEvents(); });
    readEvents(); // those that came along with the replies have left the socket already
  }

  void readEvents() {
    while (const auto event = xcbReply(xcb_poll_for_event(server_)))
      if (const auto change = changeIn(*event))
        report_(*change);
    if (xcb_connection_has_error(server_) != 0)
      notifier_->setEnabled(false);
  }

  [[nodiscard]] std::optional<ButtonChange> changeIn(const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7f) != XCB_GE_GENERIC)
      return std::nullopt;
    const auto& raw = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
    if (raw.extension != extension_)
      return std::nullopt;
    switch (raw.event_type) {
    case XCB_INPUT_RAW_MOTION:
      return ButtonChange::moved;
    case XCB_INPUT_RAW_BUTTON_PRESS:
      return pressed(raw.detail);
    case XCB_INPUT_RAW_BUTTON_RELEASE:
      return raw.detail == primaryButton ? std::optional(released()) : std::nullopt;
    default:
      return std::nullopt;
    }
  }

  // Motion events come in hundreds a second: they are selected during a drag only.
  ButtonChange pressed(std::uint32_t button) {
    if (button != primaryButton || isScreenLocked(*server_))
      return ButtonChange::otherPressed;
    (void)selectRawButtons(*server_, RawMotion::reported);
    return ButtonChange::primaryPressed;
  }
  ButtonChange released() {
    (void)selectRawButtons(*server_, RawMotion::ignored);
    return ButtonChange::primaryReleased;
  }

  std::function<void(ButtonChange)> report_;
  xcb_connection_t* server_ = xcb_connect(nullptr, nullptr);
  std::unique_ptr<QSocketNotifier> notifier_;
  std::uint8_t extension_ = 0;
  bool isReady_ = false;
};

ButtonMonitor::ButtonMonitor() = default;

ButtonMonitor::~ButtonMonitor() = default;

OSStatus ButtonMonitor::install(std::function<void(ButtonChange)> handler) {
  connection_.reset();
  if (!handler)
    return 0;
  auto connection = std::make_unique<Connection>(std::move(handler));
  if (!connection->isReady()) {
    qCWarning(buttonsLog, "the X server does not tell of buttons: no long press can be seen");
    return -1;
  }
  connection_ = std::move(connection);
  return 0;
}

} // namespace tavrel
