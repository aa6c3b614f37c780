#pragma once

#include "platform/linux/x11/keystrokes/KeyChord.h"

#include <xkbcommon/xkbcommon.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace tavrel {

/// Which characters of a key count: those that it types plain or with Shift, or those of the third
/// level (AltGr), too.
enum class KeyLevels { two, four };

/// A key that types a character, with the group and the Shift state in which it does.
struct CharacterKey {
  std::uint8_t code = 0;
  std::uint32_t group = 0;
  bool withShift = false;
};

/// The server's key in the place that a virtual key code names.
[[nodiscard]] std::optional<std::uint8_t> keyAt(xkb_keymap& keymap, std::uint16_t keyCode);

/// Finds the keys that type characters on a layout.
class CharacterKeys {
public:
  CharacterKeys(const TypingLayout& layout, CapsLock capsLock, KeyLevels levels = KeyLevels::two);

  /// The key that types the event's character, else the one in the place of its key code.
  [[nodiscard]] std::optional<CharacterKey> keyFor(const KeyboardEvent& event);
  [[nodiscard]] std::uint32_t characterOf(const CharacterKey& key);

private:
  std::optional<CharacterKey> keyThatTypes(std::uint32_t character,
                                           std::optional<std::uint8_t> first);
  std::optional<std::uint8_t> codeThatTypes(std::uint32_t character,
                                            std::optional<std::uint8_t> first, KeyBlock block);
  void setState(std::uint32_t group, xkb_mod_mask_t modifiers);

  xkb_keymap& keymap_;
  std::uint32_t group_;
  std::unique_ptr<xkb_state, XkbStateUnref> state_;
  xkb_mod_mask_t shift_;
  std::vector<xkb_mod_mask_t> levels_;
  xkb_mod_mask_t locked_;
};

} // namespace tavrel
