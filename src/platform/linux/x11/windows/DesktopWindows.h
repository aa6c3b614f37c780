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

/// The properties that show which application a window belongs to; empty or 0 where it has none.
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

  /// All managed windows, oldest first.
  [[nodiscard]] std::vector<WindowId> windows();
  /// The same in stacking order, bottom first.
  [[nodiscard]] std::vector<WindowId> stacking();
  /// The window that has the keyboard; 0 for none.
  [[nodiscard]] WindowId activeWindow();
  /// Whether keys go to this window: window managers name one active a moment before it has them.
  [[nodiscard]] bool hasKeyboard(WindowId window);
  /// Nothing when the window is gone.
  [[nodiscard]] std::optional<WindowFacts> facts(WindowId window);

  /// Requests that the window manager activate a window, as a request of the user (pagers do so),
  /// after the window's workspace has been shown. False without a window manager that can.
  bool activate(WindowId window);

  /// Requests that the window be closed, as its close button does; false without a window manager
  /// that can.
  bool close(WindowId window);

  /// The server's time stamp now, in milliseconds; 0 without a server.
  [[nodiscard]] std::uint32_t serverTime();

  /// Broadcasts a message of the startup notification protocol (0.1) to all clients.
  void broadcastStartup(const std::string& message);

private:
  void showWorkspaceOf(WindowId window);
  bool requestOfManager(std::size_t request, WindowId window, std::uint32_t first,
                        std::uint32_t second);

  struct Connection;
  std::unique_ptr<Connection> connection_; ///< null without a server
};

} // namespace tavrel
