#pragma once

#include <QAbstractNativeEventFilter>
#include <QIcon>
#include <QRect>

#include <xcb/xcb.h>

#include <functional>

namespace tavrel {

/// An icon in the desktop's XEmbed tray: a small window that the tray embeds. Without a tray it
/// waits for one, and enters it again when the tray restarts.
class TrayIcon final : public QAbstractNativeEventFilter {
public:
  /// `clicked` is called, from the event loop, for a press of any button.
  explicit TrayIcon(std::function<void()> clicked);
  ~TrayIcon() override;

  void setIcon(const QIcon& icon);
  [[nodiscard]] bool isEmbedded() const { return window_ != XCB_NONE; }
  /// Where the icon is, in the toolkit's coordinates, computed from the pointer, which must be on
  /// it.
  [[nodiscard]] QRect geometryUnderPointer() const;

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

private:
  void enter();
  void leave();
  void dock();
  [[nodiscard]] bool selectTrayEvents(xcb_window_t tray);
  void createWindow(xcb_window_t tray);
  void draw();
  void handle(const xcb_generic_event_t& event);
  void trayAnnounced(const xcb_client_message_event_t& message);
  void windowGone(xcb_window_t window);
  void resized(const xcb_configure_notify_event_t& event);
  void exposed(xcb_window_t window);
  void pressed(const xcb_button_press_event_t& event);

  xcb_connection_t* server_;
  xcb_atom_t selection_ = XCB_NONE; ///< whose owner is the tray
  xcb_atom_t manager_ = XCB_NONE;   ///< the message by which a new tray announces itself
  xcb_window_t tray_ = XCB_NONE;
  xcb_window_t window_ = XCB_NONE;
  std::uint8_t depth_ = 0;
  QSize size_;
  QIcon icon_;
  std::function<void()> clicked_;
};

} // namespace tavrel
