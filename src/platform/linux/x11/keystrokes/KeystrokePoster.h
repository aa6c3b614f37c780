#pragma once

#include "platform/linux/x11/keyboard/PhysicalKeyboards.h"
#include "platform/linux/x11/keyboard/RecordedKeyEvents.h"
#include "platform/linux/x11/keystrokes/KeyChord.h"
#include "platform/linux/x11/keystrokes/OwnKeystrokes.h"
#include "platform/linux/x11/windows/DesktopWindows.h"

#include <QTimer>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace tavrel {

/// Posts keystrokes to the focused client (XTest). Key events are gathered until every key of the
/// chord is up again; then the chord is posted at once. Around it our own keyboard grab is
/// released. Modifiers that are down and that the chord needs stay down, and are not posted; others
/// are released, and pressed again afterwards if the user, or the program that posted them (another
/// machine's keyboard), still holds them. A chord that is not complete within a tenth of a second
/// is posted as it is; one of which the keyboard lacks a key is not posted at all.
class KeystrokePoster {
public:
  /// Called with a complete chord that copies or pastes, and the process it is for.
  using SelectionHandler = std::function<void(KeyPurpose, std::int32_t process)>;

  KeystrokePoster(DesktopWindows& windows, OwnKeystrokes& own);
  /// What was pressed again for the user goes up: nobody would release it.
  ~KeystrokePoster();
  KeystrokePoster(const KeystrokePoster&) = delete;
  KeystrokePoster& operator=(const KeystrokePoster&) = delete;

  void setSelectionHandler(SelectionHandler handler) { selectionHandler_ = std::move(handler); }

  /// False without a server to post to.
  bool post(std::int32_t process, const KeyboardEvent& event);
  /// Types a chord for this window. `meanwhile` runs while our grab is still released and the
  /// user's other modifiers are still up: some programs handle no key while another one has the
  /// keyboard (LibreOffice 7.4). False, and nothing is typed, when the keyboard lacks a key or the
  /// window has not the focus.
  [[nodiscard]] bool typeTo(WindowId window, const std::vector<KeyboardEvent>& chord,
                            const std::function<void()>& meanwhile);
  /// Runs `work` while the client that has the focus counts as having the keyboard, which it does
  /// not during our grab. What the user types meanwhile is kept as during the grab.
  void whileGrabIsReleased(const std::function<void()>& work);
  /// Brings a window of the process to the front and waits for that, a tenth of a second at most.
  /// For a process without a window the keys go to whatever is in front.
  void bringToFront(std::int32_t process);
  /// Types what the user typed during our keyboard grab once more, for the client that has the
  /// focus now. A key that the user still holds arrives as pressed and released; a modifier stays
  /// down. `downAfter` is what was down after the last event.
  void retype(const RecordedKeyEvents& events, const ServerKeySet& downAfter);

private:
  bool hasServer();
  void sendChord();
  [[nodiscard]] bool isInFront(std::int32_t process);
  struct Typing {
    KeyChord chord;
    ModifierKeys modifiers; ///< of the keyboard
    std::uint32_t group;    ///< in force
    WindowId window;        ///< that has to have the focus; 0 for any
  };
  [[nodiscard]] bool type(const Typing& typing, const std::function<void()>& meanwhile);
  [[nodiscard]] ServerKeySet sendAlone(const Typing& typing, const ServerKeySet& disturbing);
  [[nodiscard]] KeyChord chordNow(const std::vector<KeyboardEvent>& events, xkb_keymap& keymap);
  void withGrabReleased(const ServerKeySet& modifiers, const std::function<ServerKeySet()>& post,
                        const std::function<void()>& meanwhile);
  ServerKeySet grabAgain(PhysicalKeyboards& pressed);
  void restore(const ServerKeySet& touched, const ServerKeySet& modifiers);
  [[nodiscard]] bool restoreOnce(const ServerKeySet& touched, const ServerKeySet& modifiers);
  void restoreLater(const ServerKeySet& touched, const ServerKeySet& modifiers);
  void releaseWithUser();

  DesktopWindows& windows_;
  OwnKeystrokes& own_;
  std::unique_ptr<KeystrokeServer> server_;
  SelectionHandler selectionHandler_;
  std::int32_t process_ = 0;
  std::vector<KeyboardEvent> pendingEvents_;
  ServerKeySet pressedAgain_; ///< by our posting, for as long as the user holds them
  QTimer chordTimeout_;
  QTimer releasePoll_;
};

} // namespace tavrel
