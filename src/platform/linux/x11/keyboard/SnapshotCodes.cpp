#include "platform/linux/x11/keyboard/SnapshotCodes.h"

#include "base/Modifiers.h"

#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace tavrel {

namespace {

// The modifier bits in force while this key alone is down.
xkb_mod_mask_t bitsWhileDown(xkb_keymap& keymap, std::uint32_t group, xkb_keycode_t key) {
  const std::unique_ptr<xkb_state, XkbStateUnref> state(xkb_state_new(&keymap));
  if (!state)
    return 0;
  xkb_state_update_mask(state.get(), 0, 0, 0, 0, 0, group);
  xkb_state_update_key(state.get(), key, XKB_KEY_DOWN);
  return xkb_state_serialize_mods(state.get(), XKB_STATE_MODS_EFFECTIVE);
}

std::optional<std::uint16_t> modifierCode(xkb_mod_mask_t bits, const ServerModifiers& modifiers) {
  const std::array<std::pair<xkb_mod_mask_t, std::uint16_t>, 5> codes{
      {{XCB_MOD_MASK_CONTROL, keyCode::command},
       {XCB_MOD_MASK_SHIFT, keyCode::shift},
       {modifiers.alt, keyCode::option},
       {modifiers.super, keyCode::control},
       {XCB_MOD_MASK_LOCK, keyCode::capsLock}}};
  for (const auto& [mask, code] : codes)
    if ((bits & mask) != 0)
      return code;
  return std::nullopt;
}

bool isModifierCode(std::uint16_t code) {
  constexpr std::array codes{keyCode::command, keyCode::shift, keyCode::capsLock, keyCode::option,
                             keyCode::control};
  return std::ranges::find(codes, code) != codes.end();
}

} // namespace

KeyTranslation snapshotCodes(xkb_keymap& keymap, std::uint32_t group,
                             const ServerModifiers& modifiers) {
  KeyTranslation codes = keyTranslation(keymap);
  for (std::size_t key = 0; key < codes.size(); ++key)
    if (const auto code =
            modifierCode(bitsWhileDown(keymap, group, static_cast<xkb_keycode_t>(key)), modifiers))
      codes[key] = *code;
    else if (isModifierCode(codes[key]) || codes[key] == noKey)
      codes[key] = otherKey;
  return codes;
}

} // namespace tavrel
