#include "platform/linux/x11/keystrokes/KeystrokeServer.h"

#include "platform/linux/x11/keyboard/KeysDown.h"
#include "platform/linux/x11/keyboard/PhysicalKeyboards.h"
#include "platform/linux/x11/server/XcbReply.h"
#include "platform/linux/x11/server/XcbXkb.h"
#include "platform/linux/x11/windows/FocusedWindow.h"

#include <xcb/xcb.h>
#include <xcb/xinput.h>
#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

namespace tavrel {

struct KeystrokeServer::Connection {
  xcb_connection_t* xcb = xcb_connect(nullptr, nullptr);
  xkb_context* context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
  std::int32_t keyboard = -1;

  Connection() = default;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() {
    xkb_context_unref(context);
    xcb_disconnect(xcb);
  }

  bool open() {
    if (context == nullptr || xcb_connection_has_error(xcb) != 0)
      return false;
    xkb_context_set_log_level(context, XKB_LOG_LEVEL_CRITICAL); // failures are logged by us
    const int ready = xkb_x11_setup_xkb_extension(
        xcb, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
        XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr, nullptr);
    keyboard = xkb_x11_get_core_keyboard_device_id(xcb);
    const auto input = xcbReply(
        xcb_input_xi_query_version_reply(xcb, xcb_input_xi_query_version(xcb, 2, 2), nullptr));
    const auto test =
        xcbReply(xcb_test_get_version_reply(xcb, xcb_test_get_version(xcb, 2, 2), nullptr));
    return ready != 0 && keyboard >= 0 && input && test;
  }
};

namespace {

ServerKeySet keysDownOn(xcb_connection_t* xcb, std::uint16_t device) {
  const auto state = xcbReply(xcb_input_query_device_state_reply(
      xcb, xcb_input_query_device_state(xcb, static_cast<std::uint8_t>(device)), nullptr));
  if (!state)
    return {};
  for (auto at = xcb_input_query_device_state_classes_iterator(state.get()); at.rem > 0;
       xcb_input_input_state_next(&at))
    if (at.data->class_id == XCB_INPUT_INPUT_CLASS_KEY)
      return keySet(reinterpret_cast<const xcb_input_key_state_t*>(at.data)->keys);
  return {};
}

// What the key does counts, not its symbol: caps:ctrl_modifier leaves a Ctrl key named Caps Lock.
bool locks(xkb_keymap& keymap, xkb_keycode_t key) {
  const std::unique_ptr<xkb_state, XkbStateUnref> state(xkb_state_new(&keymap));
  if (!state)
    return false;
  xkb_state_update_key(state.get(), key, XKB_KEY_DOWN);
  xkb_state_update_key(state.get(), key, XKB_KEY_UP);
  return xkb_state_serialize_mods(state.get(), XKB_STATE_MODS_LOCKED) != 0;
}

bool changesGroup(xkb_keymap& keymap, xkb_keycode_t key) {
  const xkb_keysym_t* symbols = nullptr;
  return xkb_keymap_key_get_syms_by_level(&keymap, key, 0, 0, &symbols) > 0 &&
         symbols[0] >= XKB_KEY_ISO_Group_Shift && symbols[0] <= XKB_KEY_ISO_Last_Group_Lock;
}

} // namespace

KeystrokeServer::KeystrokeServer(std::unique_ptr<Connection> connection)
    : connection_(std::move(connection)) {}

KeystrokeServer::~KeystrokeServer() = default;

std::unique_ptr<KeystrokeServer> KeystrokeServer::create() {
  auto connection = std::make_unique<Connection>();
  if (!connection->open())
    return nullptr;
  return std::unique_ptr<KeystrokeServer>(new KeystrokeServer(std::move(connection)));
}

xcb_connection_t& KeystrokeServer::connection() {
  return *connection_->xcb;
}

bool KeystrokeServer::isThere() {
  while (xcbReply(xcb_poll_for_event(connection_->xcb))) {
  }
  return xcb_connection_has_error(connection_->xcb) == 0;
}

XkbKeymap KeystrokeServer::keymap() {
  return XkbKeymap(xkb_x11_keymap_new_from_device(
      connection_->context, connection_->xcb, connection_->keyboard, XKB_KEYMAP_COMPILE_NO_FLAGS));
}

std::uint32_t KeystrokeServer::group() {
  const auto state = xcbReply(xcb_xkb_get_state_reply(
      connection_->xcb, xcb_xkb_get_state(connection_->xcb, XCB_XKB_ID_USE_CORE_KBD), nullptr));
  return state ? state->lockedGroup : 0;
}

bool KeystrokeServer::capsLockIsOn() {
  const auto state = xcbReply(xcb_xkb_get_state_reply(
      connection_->xcb, xcb_xkb_get_state(connection_->xcb, XCB_XKB_ID_USE_CORE_KBD), nullptr));
  return state && (state->lockedMods & XCB_MOD_MASK_LOCK) != 0;
}

std::uint8_t KeystrokeServer::modifiersInForce() {
  const auto state = xcbReply(xcb_xkb_get_state_reply(
      connection_->xcb, xcb_xkb_get_state(connection_->xcb, XCB_XKB_ID_USE_CORE_KBD), nullptr));
  return state ? state->baseMods : std::uint8_t{0};
}

ServerKeySet KeystrokeServer::down() {
  return keysDown(*connection_->xcb).value_or(ServerKeySet());
}

ServerKeySet KeystrokeServer::physicallyDown() {
  ServerKeySet keys;
  for (const std::uint16_t keyboard : physicalKeyboards(*connection_->xcb))
    keys |= keysDownOn(connection_->xcb, keyboard);
  return keys;
}

ServerKeySet KeystrokeServer::downByPrograms() {
  ServerKeySet keys;
  for (const std::uint16_t keyboard : programKeyboards(*connection_->xcb))
    keys |= keysDownOn(connection_->xcb, keyboard);
  return keys;
}

ModifierKeys KeystrokeServer::modifierKeys(xkb_keymap& keymap) {
  const auto map = xcbReply(xcb_get_modifier_mapping_reply(
      connection_->xcb, xcb_get_modifier_mapping(connection_->xcb), nullptr));
  ModifierKeys modifiers;
  if (!map)
    return modifiers;
  const xcb_keycode_t* codes = xcb_get_modifier_mapping_keycodes(map.get());
  const std::size_t each = map->keycodes_per_modifier;
  for (std::size_t at = 0; at < 8 * each; ++at)
    if (at / each != XCB_MAP_INDEX_LOCK && codes[at] != 0 && !locks(keymap, codes[at])) {
      modifiers.keys.set(codes[at]);
      modifiers.bits[codes[at]] |= static_cast<std::uint8_t>(1U << (at / each));
    }
  return modifiers;
}

ServerKeySet KeystrokeServer::lockKeys(xkb_keymap& keymap) {
  ServerKeySet keys;
  for (std::size_t key = 0; key < keys.size(); ++key)
    keys[key] = locks(keymap, static_cast<xkb_keycode_t>(key)) ||
                changesGroup(keymap, static_cast<xkb_keycode_t>(key));
  return keys;
}

void KeystrokeServer::lockGroup(std::uint32_t group) {
  xcb_xkb_latch_lock_state(connection_->xcb, XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1,
                           static_cast<std::uint8_t>(group), 0, 0, 0);
}

void KeystrokeServer::send(const std::vector<ServerKey>& keys) {
  constexpr std::uint32_t moment = 2; // in milliseconds
  ServerKeySet released;
  for (const ServerKey& key : keys) {
    const bool isDown = key.direction == KeyDirection::down;
    xcb_test_fake_input(connection_->xcb, isDown ? XCB_KEY_PRESS : XCB_KEY_RELEASE, key.code,
                        isDown && released[key.code] ? moment : XCB_CURRENT_TIME, XCB_NONE, 0, 0,
                        0);
    released.set(key.code, !isDown);
  }
  xcb_flush(connection_->xcb);
}

bool KeystrokeServer::hasFocus(std::uint32_t window) {
  return isFocusIn(*connection_->xcb, window);
}

void KeystrokeServer::holdServer() {
  xcb_grab_server(connection_->xcb);
}

void KeystrokeServer::releaseServer() {
  xcb_ungrab_server(connection_->xcb);
  roundTrip();
}

void KeystrokeServer::roundTrip() {
  xcbReply(
      xcb_get_input_focus_reply(connection_->xcb, xcb_get_input_focus(connection_->xcb), nullptr));
}

} // namespace tavrel
