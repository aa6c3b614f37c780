#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// An X11 window; 0 for none.
using WindowId = std::uint32_t;

enum class WindowKind { ordinary, dock, desktop };

/// What tells which application a window belongs to; empty texts and 0 for what it does not tell.
struct WindowFacts {
  WindowKind kind = WindowKind::ordinary;
  std::int32_t pid = 0;      ///< of a process on this machine
  std::uint32_t client = 0;  ///< the X11 client that made the window
  std::string instance;      ///< first part of WM_CLASS
  std::string windowClass;   ///< second part of WM_CLASS
  std::string applicationId; ///< _GTK_APPLICATION_ID or _KDE_NET_WM_DESKTOP_FILE
};

/// The windows of the session, as the window manager lists them (EWMH 1.5), over a connection of
/// its own. Without an X server, or when it goes, there are none.
class DesktopWindows {
public:
  DesktopWindows();
  ~DesktopWindows();

  /// Oldest first.
  [[nodiscard]] std::vector<WindowId> windows();
  /// Bottom first.
  [[nodiscard]] std::vector<WindowId> stacking();
  /// The one that the keys go to; 0 when they go to none.
  [[nodiscard]] WindowId activeWindow();
  /// Nothing when the window is gone.
  [[nodiscard]] std::optional<WindowFacts> facts(WindowId window);

  /// Asks the window manager as a person's own wish, the window's workspace shown first; false
  /// when there is none that can.
  bool activate(WindowId window);

  /// Asks the window to close, as its close button does; false when there is no window manager that
  /// can.
  bool close(WindowId window);

  /// Now, by the server's clock, in milliseconds; 0 without a server.
  [[nodiscard]] std::uint32_t serverTime();

  /// Sends a message of the startup notification protocol (0.1) to whom it may concern.
  void broadcastStartup(const std::string& message);

private:
  void showWorkspaceOf(WindowId window);
  bool askManager(std::size_t request, WindowId window, std::uint32_t first, std::uint32_t second);

  struct Connection;
  std::unique_ptr<Connection> connection_; ///< null without a server
};

} // namespace tavrel
