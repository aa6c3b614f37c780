#pragma once

#include "platform/linux/x11/keyboard/PhysicalKeyboards.h"
#include "platform/linux/x11/keyboard/RecordedKeyEvents.h"
#include "platform/linux/x11/keystrokes/KeyChord.h"
#include "platform/linux/x11/keystrokes/OwnKeystrokes.h"

#include <QTimer>

#include <cstdint>
#include <memory>
#include <vector>

namespace tavrel {

class ApplicationRegistry;
class DesktopWindows;

/// Posts keystrokes to the focused client (XTest). Key events are gathered until every key of the
/// chord is up again; then the chord is posted at once. Around it our own keyboard grab is
/// released, the modifiers that the user holds are released, too, and pressed again afterwards if
/// the user still holds them. A chord that is not complete within a tenth of a second is posted as
/// it is.
class KeystrokePoster {
public:
  KeystrokePoster(ApplicationRegistry& registry, DesktopWindows& windows, OwnKeystrokes& own);

  /// False without a server to post to.
  bool post(std::int32_t process, const KeyboardEvent& event);
  /// Types what the user typed during our keyboard grab once more, for the client that has the
  /// focus now. A key that the user still holds arrives as pressed and released; a modifier stays
  /// down.
  void retype(const RecordedKeyEvents& events);

private:
  bool hasServer();
  void sendChord();
  void bringToFront();
  [[nodiscard]] bool isInFront();
  [[nodiscard]] KeyReceiver receiver();
  void typeChord(const KeyChord& chord, const ServerKeySet& modifiers, std::uint32_t group);
  ServerKeySet grabAgain(PhysicalKeyboards& pressed);
  void pressAgain(const ServerKeySet& released);
  void releaseWithUser();

  ApplicationRegistry& registry_;
  DesktopWindows& windows_;
  OwnKeystrokes& own_;
  std::unique_ptr<KeystrokeServer> server_;
  std::int32_t process_ = 0;
  std::vector<KeyboardEvent> pendingEvents_;
  ServerKeySet pressedAgain_; ///< by our posting, for as long as the user holds them
  QTimer chordTimeout_;
  QTimer releasePoll_;
};

} // namespace tavrel
