#pragma once

#include "platform/linux/x11/clipboard/CopyWatch.h"
#include "platform/linux/x11/selection/CopyLags.h"
#include "platform/linux/x11/selection/ProgramEvidence.h"

#include <functional>
#include <string>
#include <vector>

namespace tavrel {

class ApplicationRegistry;
class ClipboardThread;
class KeystrokePoster;

/// What a keystroke for copying or pasting needs of the desktop. All must outlive its user.
struct SelectionKeysDesktop {
  ApplicationRegistry& registry;
  DesktopWindows& windows;
  AccessibilityBus& accessibilityBus;
  KeystrokePoster& poster;
  ClipboardThread* clipboard;                           ///< null without an X server
  std::function<std::vector<std::string>()> exceptions; ///< applications that get no key
  std::function<void()> answered; ///< there is nothing to wait for after the keystroke
};

/// Asks programs for their selection and gives them pastes, each by the road that it knows.
class SelectionKeys {
public:
  explicit SelectionKeys(SelectionKeysDesktop desktop) : desktop_(std::move(desktop)) {}

  /// Blocks until it is known what the program in front copies. A second call for the same capture
  /// sends nothing.
  void copy(std::int32_t process);
  /// Only into the window of the last copy, and only if that is of this process; 0 for any.
  void paste(std::int32_t process);

private:
  struct Asked {
    WindowId window = 0; ///< 0 when no program was asked
    std::int32_t process = 0;
    std::uint64_t started = 0; ///< see startTimeOf
    std::int64_t declarations = -1;
    CopyAnswer answer = CopyAnswer::nothing;
  };

  void ask(WindowId window);
  [[nodiscard]] SelectionRoad roadOf(const WindowFacts& window);
  [[nodiscard]] CopyAnswer press(const SelectionRoad& road);
  [[nodiscard]] CopyAnswer awaitCopy(std::chrono::milliseconds least);
  [[nodiscard]] CopyAnswer readPrimary();
  [[nodiscard]] bool isAsked(const WindowFacts& window) const;
  [[nodiscard]] bool bringBack(WindowId window);
  void warn(const WindowFacts& window, const char* what) const;

  SelectionKeysDesktop desktop_;
  Asked asked_;
  CopyLags lags_;
};

} // namespace tavrel
