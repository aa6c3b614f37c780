#include "platform/linux/x11/keyboard/ServerModifiers.h"

#include "platform/linux/x11/server/XcbReply.h"

#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include <algorithm>
#include <initializer_list>
#include <span>

namespace tavrel {

namespace {

using KeySyms = std::span<const xcb_keysym_t>;

bool typesAnyOf(KeySyms symbols, std::initializer_list<xcb_keysym_t> wanted) {
  return std::find_first_of(symbols.begin(), symbols.end(), wanted.begin(), wanted.end()) !=
         symbols.end();
}

void addModifierKey(ServerModifiers& modifiers, std::size_t row, std::size_t key, KeySyms symbols) {
  const auto bit = static_cast<std::uint16_t>(1U << row);
  modifiers.keys.set(key);
  if (bit == XCB_MOD_MASK_LOCK)
    modifiers.capsLockKeys.set(key);
  if (modifiers.alt == 0 && typesAnyOf(symbols, {XKB_KEY_Alt_L, XKB_KEY_Alt_R}))
    modifiers.alt = bit;
  if (modifiers.super == 0 && typesAnyOf(symbols, {XKB_KEY_Super_L, XKB_KEY_Super_R}))
    modifiers.super = bit;
  if (typesAnyOf(symbols, {XKB_KEY_Num_Lock, XKB_KEY_Scroll_Lock}))
    modifiers.locks |= bit;
}

} // namespace

ServerModifiers serverModifiers(xcb_connection_t& connection) {
  const xcb_setup_t& setup = *xcb_get_setup(&connection);
  const std::size_t first = setup.min_keycode;
  const std::size_t count = setup.max_keycode - first + 1;
  const auto mapRequest = xcb_get_modifier_mapping(&connection);
  const auto symbolsRequest =
      xcb_get_keyboard_mapping(&connection, setup.min_keycode, static_cast<std::uint8_t>(count));
  const auto map = xcbReply(xcb_get_modifier_mapping_reply(&connection, mapRequest, nullptr));
  const auto symbols =
      xcbReply(xcb_get_keyboard_mapping_reply(&connection, symbolsRequest, nullptr));
  ServerModifiers modifiers;
  modifiers.locks = XCB_MOD_MASK_LOCK; // Caps Lock may be on without any key that sets it
  if (!map || !symbols)
    return modifiers;
  const std::size_t perKey = symbols->keysyms_per_keycode;
  const KeySyms all(xcb_get_keyboard_mapping_keysyms(symbols.get()), count * perKey);
  const std::size_t perRow = map->keycodes_per_modifier;
  const std::span keys(xcb_get_modifier_mapping_keycodes(map.get()), 8 * perRow);
  std::bitset<256> otherKeys; // a key that has been made Ctrl may be in the row of Caps Lock still
  for (std::size_t i = 0; i < keys.size(); ++i)
    if (keys[i] >= first) {
      addModifierKey(modifiers, i / perRow, keys[i],
                     all.subspan((keys[i] - first) * perKey, perKey));
      otherKeys[keys[i]] = otherKeys[keys[i]] || i / perRow != XCB_MAP_INDEX_LOCK;
    }
  modifiers.capsLockKeys &= ~otherKeys;
  const int own = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | modifiers.alt | modifiers.super;
  modifiers.locks &= static_cast<std::uint16_t>(~own);
  return modifiers;
}

std::vector<std::uint16_t> subsetsOf(std::uint16_t bits) {
  std::vector<std::uint16_t> subsets{0};
  for (unsigned bit = 1; bit <= bits; bit <<= 1)
    if ((bits & bit) != 0)
      for (std::size_t i = subsets.size(); i > 0; --i)
        subsets.push_back(static_cast<std::uint16_t>(subsets[i - 1] | bit));
  return subsets;
}

} // namespace tavrel
