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

/// Types for the person. Key events are gathered until every key of the chord is up again, then the
/// chord goes to the focused client at once: our hot key's grab is let go, the modifiers that the
/// person holds are lifted and, where they are still held, put back after. A chord that is not
/// finished within a tenth of a second goes as it is, its keys lifted.
class KeystrokePoster {
public:
  KeystrokePoster(ApplicationRegistry& registry, DesktopWindows& windows, OwnKeystrokes& own);

  /// False without a server to post to.
  bool post(std::int32_t process, const KeyboardEvent& event);
  /// What the person typed while we held the keyboard, to whoever has the focus now. A key that is
  /// still held is not held for the receiver; a modifier is.
  void retype(const RecordedKeyEvents& typed);

private:
  bool hasServer();
  void sendChord();
  void bringToFront();
  [[nodiscard]] bool isInFront();
  [[nodiscard]] KeyReceiver receiver();
  void typeChord(const KeyChord& chord, const ServerKeySet& modifiers, std::uint32_t group);
  ServerKeySet holdAgain(PhysicalKeyboards& pressed);
  void putBack(const ServerKeySet& lifted);
  void liftWhatThePersonLeft();

  ApplicationRegistry& registry_;
  DesktopWindows& windows_;
  OwnKeystrokes& own_;
  std::unique_ptr<KeystrokeServer> server_;
  std::int32_t process_ = 0;
  std::vector<KeyboardEvent> gathered_;
  ServerKeySet putBack_; ///< keys that we hold down for as long as the person does
  QTimer unfinished_;
  QTimer held_;
};

} // namespace tavrel
