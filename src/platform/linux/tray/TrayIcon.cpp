#include "platform/linux/tray/TrayIcon.h"

#include "platform/linux/x11/server/XcbReply.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QScreen>
#include <QTimer>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace tavrel {

namespace {
constexpr std::uint16_t initialSize = 22; ///< until the tray resizes the window
constexpr std::uint32_t requestDock = 0;
constexpr std::array<std::uint32_t, 2> embedMapped = {0, 1}; ///< protocol version, mapped

xcb_connection_t* serverConnection() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 ? x11->connection() : nullptr;
}

const xcb_screen_t& firstScreen(xcb_connection_t* server) {
  return *xcb_setup_roots_iterator(xcb_get_setup(server)).data;
}

xcb_atom_t atom(xcb_connection_t* server, const char* name) {
  const auto length = static_cast<std::uint16_t>(std::strlen(name));
  const auto reply =
      xcbReply(xcb_intern_atom_reply(server, xcb_intern_atom(server, 0, length, name), nullptr));
  return reply ? reply->atom : XCB_NONE;
}

/// The visual that the tray requests for its icons, else the screen's.
xcb_visualid_t trayVisual(xcb_connection_t* server, xcb_window_t tray) {
  const auto reply = xcbReply(xcb_get_property_reply(
      server,
      xcb_get_property(server, 0, tray, atom(server, "_NET_SYSTEM_TRAY_VISUAL"), XCB_ATOM_VISUALID,
                       0, 1),
      nullptr));
  if (!reply || xcb_get_property_value_length(reply.get()) != sizeof(xcb_visualid_t))
    return firstScreen(server).root_visual;
  return *static_cast<const xcb_visualid_t*>(xcb_get_property_value(reply.get()));
}

std::uint8_t depthOf(xcb_connection_t* server, xcb_visualid_t visual) {
  for (auto depth = xcb_screen_allowed_depths_iterator(&firstScreen(server)); depth.rem;
       xcb_depth_next(&depth)) {
    const auto* visuals = xcb_depth_visuals(depth.data);
    const int count = xcb_depth_visuals_length(depth.data);
    if (std::any_of(visuals, visuals + count,
                    [&](const auto& candidate) { return candidate.visual_id == visual; }))
      return depth.data->depth;
  }
  return 0;
}

/// The image to draw the icon on: transparent where the tray blends it, else what the panel shows
/// behind the window.
QImage background(xcb_connection_t* server, xcb_window_t window, std::uint8_t depth, QSize size) {
  QImage image(size, depth == 32 ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  image.fill(Qt::transparent);
  if (depth == 32)
    return image;
  xcb_clear_area(server, 0, window, 0, 0, 0, 0);
  const auto width = static_cast<std::uint16_t>(size.width());
  const auto height = static_cast<std::uint16_t>(size.height());
  const auto reply = xcbReply(xcb_get_image_reply(
      server, xcb_get_image(server, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0, width, height, ~0U),
      nullptr));
  if (reply && xcb_get_image_data_length(reply.get()) == image.sizeInBytes())
    std::memcpy(image.bits(), xcb_get_image_data(reply.get()),
                static_cast<std::size_t>(image.sizeInBytes()));
  return image;
}

void paintCentred(QImage& image, const QIcon& icon) {
  const int side = std::min(image.width(), image.height());
  QPainter painter(&image);
  painter.drawPixmap((image.width() - side) / 2, (image.height() - side) / 2,
                     icon.pixmap(QSize(side, side), 1.0));
}

void setText(xcb_connection_t* server, xcb_window_t window, xcb_atom_t name,
             std::string_view text) {
  xcb_change_property(server, XCB_PROP_MODE_REPLACE, window, name, XCB_ATOM_STRING, 8,
                      static_cast<std::uint32_t>(text.size()), text.data());
}

/// Some trays shrink an icon to its minimum size: trayer gives it a width of one pixel without one.
void askForSize(xcb_connection_t* server, xcb_window_t window, QSize size) {
  constexpr std::uint32_t minimumGiven = 1U << 4;
  std::array<std::uint32_t, 18> hints{}; // laid out as WM_SIZE_HINTS
  hints[0] = minimumGiven;
  hints[5] = static_cast<std::uint32_t>(size.width());
  hints[6] = static_cast<std::uint32_t>(size.height());
  xcb_change_property(server, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NORMAL_HINTS,
                      XCB_ATOM_WM_SIZE_HINTS, 32, hints.size(), hints.data());
}

void putImage(xcb_connection_t* server, xcb_window_t window, std::uint8_t depth,
              const QImage& image) {
  const xcb_gcontext_t context = xcb_generate_id(server);
  xcb_create_gc(server, context, window, 0, nullptr);
  xcb_put_image(server, XCB_IMAGE_FORMAT_Z_PIXMAP, window, context,
                static_cast<std::uint16_t>(image.width()),
                static_cast<std::uint16_t>(image.height()), 0, 0, 0, depth,
                static_cast<std::uint32_t>(image.sizeInBytes()), image.constBits());
  xcb_free_gc(server, context);
}
} // namespace

TrayIcon::TrayIcon(std::function<void()> clicked)
    : server_(serverConnection()), clicked_(std::move(clicked)) {
  if (!server_)
    return;
  selection_ = atom(server_, "_NET_SYSTEM_TRAY_S0");
  manager_ = atom(server_, "MANAGER");
  QCoreApplication::instance()->installNativeEventFilter(this);
  enter();
}

TrayIcon::~TrayIcon() {
  if (!server_)
    return;
  QCoreApplication::instance()->removeNativeEventFilter(this);
  leave();
}

void TrayIcon::enter() {
  const auto owner = xcbReply(xcb_get_selection_owner_reply(
      server_, xcb_get_selection_owner(server_, selection_), nullptr));
  if (!owner || owner->owner == XCB_NONE || isEmbedded())
    return;
  if (!selectTrayEvents(owner->owner))
    return; // the tray has ended meanwhile; the next one announces itself
  tray_ = owner->owner;
  createWindow(tray_);
  dock();
}

bool TrayIcon::selectTrayEvents(xcb_window_t tray) {
  const std::uint32_t notices = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  const auto error = xcbReply(xcb_request_check(
      server_, xcb_change_window_attributes_checked(server_, tray, XCB_CW_EVENT_MASK, &notices)));
  return error == nullptr;
}

/// The window is destroyed, because a tray that ends would leave it on the desktop.
void TrayIcon::leave() {
  if (isEmbedded())
    xcb_destroy_window(server_, window_);
  window_ = XCB_NONE;
  tray_ = XCB_NONE;
  xcb_flush(server_);
}

void TrayIcon::createWindow(xcb_window_t tray) {
  const xcb_screen_t& screen = firstScreen(server_);
  const xcb_visualid_t visual = trayVisual(server_, tray);
  depth_ = depthOf(server_, visual);
  size_ = {initialSize, initialSize};
  const xcb_colormap_t colours = xcb_generate_id(server_);
  xcb_create_colormap(server_, XCB_COLORMAP_ALLOC_NONE, colours, screen.root, visual);
  window_ = xcb_generate_id(server_);
  const bool blends = depth_ == 32;
  const std::uint32_t events =
      XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  const std::array<std::uint32_t, 4> values = {
      blends ? 0U : static_cast<std::uint32_t>(XCB_BACK_PIXMAP_PARENT_RELATIVE), 0, events,
      colours};
  const std::uint32_t backgroundKind = blends ? XCB_CW_BACK_PIXEL : XCB_CW_BACK_PIXMAP;
  xcb_create_window(server_, depth_, window_, screen.root, 0, 0, initialSize, initialSize, 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                    backgroundKind | XCB_CW_BORDER_PIXEL | XCB_CW_EVENT_MASK | XCB_CW_COLORMAP,
                    values.data());
}

void TrayIcon::dock() {
  static constexpr char windowClass[] = "tavrel\0Tavrel"; // instance and class, each ended by NUL
  const xcb_atom_t info = atom(server_, "_XEMBED_INFO");
  xcb_change_property(server_, XCB_PROP_MODE_REPLACE, window_, info, info, 32, embedMapped.size(),
                      embedMapped.data());
  askForSize(server_, window_, size_);
  setText(server_, window_, XCB_ATOM_WM_NAME, "Tavrel");
  setText(server_, window_, XCB_ATOM_WM_CLASS, std::string_view(windowClass, sizeof windowClass));
  xcb_client_message_event_t request{};
  request.response_type = XCB_CLIENT_MESSAGE;
  request.format = 32;
  request.window = tray_;
  request.type = atom(server_, "_NET_SYSTEM_TRAY_OPCODE");
  request.data.data32[1] = requestDock;
  request.data.data32[2] = window_;
  xcb_send_event(server_, 0, tray_, XCB_EVENT_MASK_NO_EVENT,
                 reinterpret_cast<const char*>(&request));
  xcb_flush(server_);
}

void TrayIcon::setIcon(const QIcon& icon) {
  icon_ = icon;
  draw();
}

void TrayIcon::draw() {
  if (!isEmbedded() || icon_.isNull())
    return;
  QImage image = background(server_, window_, depth_, size_);
  paintCentred(image, icon_);
  putImage(server_, window_, depth_, image);
  xcb_flush(server_);
}

QRect TrayIcon::geometryUnderPointer() const {
  const QPoint pointer = QCursor::pos();
  const QScreen* screen = QGuiApplication::screenAt(pointer);
  const auto reply =
      xcbReply(xcb_query_pointer_reply(server_, xcb_query_pointer(server_, window_), nullptr));
  if (!screen || !reply)
    return {pointer, QSize(0, 0)};
  const qreal scale = screen->devicePixelRatio();
  const QPointF within = QPointF(reply->win_x, reply->win_y) / scale;
  return {(pointer - within).toPoint(), (QSizeF(size_) / scale).toSize()};
}

bool TrayIcon::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  if (type == "xcb_generic_event_t")
    handle(*static_cast<const xcb_generic_event_t*>(message));
  return false;
}

void TrayIcon::handle(const xcb_generic_event_t& event) {
  constexpr auto sentByClient = 0x80;
  switch (event.response_type & ~sentByClient) {
  case XCB_CLIENT_MESSAGE:
    return trayAnnounced(reinterpret_cast<const xcb_client_message_event_t&>(event));
  case XCB_DESTROY_NOTIFY:
    return windowGone(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
  case XCB_CONFIGURE_NOTIFY:
    return resized(reinterpret_cast<const xcb_configure_notify_event_t&>(event));
  case XCB_EXPOSE:
    return exposed(reinterpret_cast<const xcb_expose_event_t&>(event).window);
  case XCB_BUTTON_PRESS:
    return pressed(reinterpret_cast<const xcb_button_press_event_t&>(event));
  default:
    return;
  }
}

void TrayIcon::trayAnnounced(const xcb_client_message_event_t& message) {
  if (message.type != manager_ || message.data.data32[1] != selection_)
    return;
  leave();
  enter();
}

void TrayIcon::windowGone(xcb_window_t window) {
  if (!isEmbedded() || (window != tray_ && window != window_))
    return;
  leave();
  enter();
}

void TrayIcon::resized(const xcb_configure_notify_event_t& event) {
  if (!isEmbedded() || event.window != window_)
    return;
  size_ = {event.width, event.height};
  if (size_.width() < size_.height()) // in a row of icons: request a square
    askForSize(server_, window_, {size_.height(), initialSize});
  draw();
}

void TrayIcon::exposed(xcb_window_t window) {
  if (isEmbedded() && window == window_)
    draw();
}

void TrayIcon::pressed(const xcb_button_press_event_t& event) {
  constexpr int lastClickButton = 3; // further ones are the wheel
  if (isEmbedded() && event.event == window_ && event.detail <= lastClickButton)
    QTimer::singleShot(0, qApp, clicked_);
}

} // namespace tavrel
