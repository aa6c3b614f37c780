#include "platform/linux/x11/keyboard/ServerKeys.h"

#include "base/Modifiers.h"

#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon-x11.h>

#include <array>
#include <optional>

namespace tavrel {

namespace {

struct ContextUnref {
  void operator()(xkb_context* context) const { xkb_context_unref(context); }
};

XkbKeymap keymapOf(xcb_connection_t& connection) {
  const std::unique_ptr<xkb_context, ContextUnref> context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
  const std::int32_t keyboard = xkb_x11_get_core_keyboard_device_id(&connection);
  if (!context || keyboard < 0)
    return nullptr;
  xkb_context_set_log_level(context.get(), XKB_LOG_LEVEL_CRITICAL); // failures are logged by us
  return XkbKeymap(xkb_x11_keymap_new_from_device(context.get(), &connection, keyboard,
                                                  XKB_KEYMAP_COMPILE_NO_FLAGS));
}

/// Nothing when one of the modifiers has no key.
std::optional<std::uint16_t> serverMask(const ServerModifiers& server, std::uint32_t modifiers) {
  const std::array<std::pair<std::uint32_t, std::uint16_t>, 4> bits{
      {{eventModifier::command, XCB_MOD_MASK_CONTROL},
       {eventModifier::shift, XCB_MOD_MASK_SHIFT},
       {eventModifier::option, server.alt},
       {eventModifier::control, server.super}}};
  std::uint16_t mask = 0;
  for (const auto& [modifier, bit] : bits) {
    if ((modifiers & modifier) == 0)
      continue;
    if (bit == 0)
      return std::nullopt;
    mask |= bit;
  }
  return mask;
}

constexpr std::uint32_t places = 128; // of virtual key codes

std::string nameOfKey(const ServerKeys& keys, std::uint32_t keyCode) {
  for (std::size_t key = 0; keys.keymap && key < keys.translation.size(); ++key) {
    const xkb_keysym_t* symbols = nullptr;
    if (keyCode == noKey || keys.translation[key] != keyCode ||
        xkb_keymap_key_get_syms_by_level(keys.keymap.get(), static_cast<xkb_keycode_t>(key), 0, 0,
                                         &symbols) == 0)
      continue;
    const xkb_keysym_t symbol = xkb_keysym_to_upper(symbols[0]);
    std::array<char, 64> name{};
    if (xkb_keysym_to_utf32(symbol) > ' ' && xkb_keysym_to_utf32(symbol) != 0x7F)
      xkb_keysym_to_utf8(symbol, name.data(), name.size());
    else
      xkb_keysym_get_name(symbol, name.data(), name.size());
    return name.data();
  }
  return keyCode < places ? "key " + std::to_string(keyCode) : "no key";
}

} // namespace

ServerKeys serverKeys(xcb_connection_t& connection) {
  ServerKeys keys;
  keys.keymap = keymapOf(connection);
  if (keys.keymap)
    keys.translation = keyTranslation(*keys.keymap);
  else
    keys.translation.fill(noKey);
  keys.modifiers = serverModifiers(connection);
  return keys;
}

std::vector<KeyGrab> grabsFor(const ServerKeys& keys, std::uint32_t keyCode,
                              std::uint32_t modifiers) {
  std::vector<KeyGrab> grabs;
  const auto mask = serverMask(keys.modifiers, modifiers);
  for (std::size_t key = 0; mask && key < keys.translation.size(); ++key)
    if (keys.translation[key] == keyCode && keyCode != noKey)
      for (const std::uint16_t locks : subsetsOf(keys.modifiers.locks))
        grabs.push_back(
            {static_cast<std::uint8_t>(key), static_cast<std::uint16_t>(*mask | locks)});
  return grabs;
}

std::string combinationInWords(const ServerKeys& keys, std::uint32_t keyCode,
                               std::uint32_t modifiers) {
  constexpr std::array<std::pair<std::uint32_t, const char*>, 4> names{
      {{eventModifier::command, "Ctrl+"},
       {eventModifier::option, "Alt+"},
       {eventModifier::shift, "Shift+"},
       {eventModifier::control, "Super+"}}};
  std::string words;
  for (const auto& [modifier, name] : names)
    if ((modifiers & modifier) != 0)
      words += name;
  return words + nameOfKey(keys, keyCode);
}

} // namespace tavrel
