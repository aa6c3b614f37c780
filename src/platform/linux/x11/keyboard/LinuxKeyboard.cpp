#include "platform/linux/x11/keyboard/LinuxKeyboard.h"

#include "base/Modifiers.h"
#include "platform/common/KeyboardLayout.h"
#include "platform/linux/x11/keyboard/KeysDown.h"
#include "platform/linux/x11/keyboard/LayoutChanges.h"
#include "platform/linux/x11/keyboard/ServerModifiers.h"
#include "platform/linux/x11/keyboard/SnapshotCodes.h"
#include "platform/linux/x11/keyboard/XkbCharacters.h"
#include "platform/linux/x11/keyboard/XkbKeyboard.h"
#include "platform/linux/x11/keyboard/XkbLayout.h"
#include "platform/linux/x11/server/XcbReply.h"
#include "platform/linux/x11/server/XcbXkb.h"

#include <QLoggingCategory>
#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon-x11.h>

#include <string_view>
#include <utility>
#include <vector>

namespace tavrel {

namespace {

Q_LOGGING_CATEGORY(keyboardLog, "tavrel.keyboard")

// Ctrl stands for Command and Super for Control, as in menus and settings.
std::uint32_t eventModifiersOf(std::uint16_t mask, const ServerModifiers& server) {
  const std::pair<std::uint16_t, std::uint32_t> bits[]{
      {XCB_MOD_MASK_CONTROL, eventModifier::command},
      {XCB_MOD_MASK_SHIFT, eventModifier::shift},
      {XCB_MOD_MASK_LOCK, eventModifier::capsLock},
      {server.alt, eventModifier::option},
      {server.super, eventModifier::control}};
  std::uint32_t modifiers = 0;
  for (const auto& [bit, modifier] : bits)
    modifiers |= (mask & bit) != 0 ? modifier : 0;
  return modifiers;
}

KeyMap keyMapOf(const ServerKeySet& keys, const KeyTranslation& codes) {
  KeyMap map;
  for (std::size_t key = 0; key < codes.size(); ++key)
    if (keys.test(key))
      map.set(codes[key]);
  return map;
}

std::uint32_t modifiersDown(const KeyMap& keys) {
  constexpr std::pair<std::uint16_t, std::uint32_t> bits[]{
      {keyCode::command, eventModifier::command},
      {keyCode::shift, eventModifier::shift},
      {keyCode::option, eventModifier::option},
      {keyCode::control, eventModifier::control}};
  std::uint32_t modifiers = 0;
  for (const auto& [key, modifier] : bits)
    modifiers |= keys.isDown(key) ? modifier : 0;
  return modifiers;
}

// Rules, model, layouts, variants and options, each ended by a NUL.
std::vector<std::string> ruleNames(std::string_view property) {
  std::vector<std::string> names;
  while (!property.empty()) {
    const std::size_t end = property.find('\0');
    names.emplace_back(property.substr(0, end));
    property.remove_prefix(end == std::string_view::npos ? property.size() : end + 1);
  }
  names.resize(5);
  return names;
}

} // namespace

struct LinuxKeyboard::Server {
  xcb_connection_t* connection = nullptr;
  xcb_window_t root = 0;
  xkb_context* context = nullptr;
  std::int32_t device = -1;
  bool isOutdated = true;
  XkbKeymap keymap;
  ServerModifiers modifiers;
  std::uint32_t codesGroup = 0;
  KeyTranslation codes{};

  ~Server() {
    xkb_context_unref(context);
    xcb_disconnect(connection);
  }

  bool open() {
    connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection) != 0)
      return false;
    root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
    if (context)
      xkb_context_set_log_level(context, XKB_LOG_LEVEL_CRITICAL); // failures are logged by us
    const int ready = xkb_x11_setup_xkb_extension(
        connection, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
        XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr, nullptr);
    device = xkb_x11_get_core_keyboard_device_id(connection);
    if (ready == 0 || device < 0 || !context)
      return false;
    selectLayoutChanges(*connection);
    return update();
  }

  // Reads what the server has sent, and notices a closed connection.
  [[nodiscard]] bool isThere() {
    while (const auto event = xcbReply(xcb_poll_for_event(connection)))
      isOutdated = isOutdated || isLayoutChange(*connection, *event);
    return xcb_connection_has_error(connection) == 0;
  }

  // Whether there is a keymap. A server between two keymaps may have none to read; then the next
  // question reads it.
  bool update() {
    const std::uint32_t nowGroup = group(); // with its reply come all changes before it
    if (!isThere() || (!isOutdated && nowGroup == codesGroup))
      return keymap != nullptr;
    isOutdated = false;
    XkbKeymap read(
        xkb_x11_keymap_new_from_device(context, connection, device, XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!read)
      isOutdated = true;
    else
      keymap = std::move(read);
    modifiers = serverModifiers(*connection);
    codesGroup = nowGroup;
    if (keymap)
      codes = snapshotCodes(*keymap, codesGroup, modifiers);
    return keymap != nullptr;
  }

  [[nodiscard]] std::uint32_t group() const {
    const auto state = xcbReply(xcb_xkb_get_state_reply(
        connection, xcb_xkb_get_state(connection, XCB_XKB_ID_USE_CORE_KBD), nullptr));
    return state ? state->group : 0;
  }

  [[nodiscard]] std::string rules() const {
    constexpr std::string_view name = "_XKB_RULES_NAMES";
    const auto atom = xcbReply(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 1, name.size(), name.data()), nullptr));
    if (!atom)
      return {};
    const auto property = xcbReply(xcb_get_property_reply(
        connection, xcb_get_property(connection, 0, root, atom->atom, XCB_ATOM_STRING, 0, 1024),
        nullptr));
    if (!property)
      return {};
    return {static_cast<const char*>(xcb_get_property_value(property.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(property.get()))};
  }
};

LinuxKeyboard::LinuxKeyboard(KeysOfEvent event)
    : event_(std::move(event)), server_(std::make_unique<Server>()) {
  if (server_->open())
    return;
  qCWarning(keyboardLog, "the keyboard of this display cannot be read");
  server_.reset();
}

LinuxKeyboard::~LinuxKeyboard() = default;

bool LinuxKeyboard::hasServer() {
  if (server_)
    (void)server_->update();
  if (server_ && !server_->isThere()) {
    qCWarning(keyboardLog, "the display is gone: the keyboard cannot be read any more");
    server_.reset();
  }
  return server_ != nullptr;
}

KeyMap LinuxKeyboard::keyMap() {
  if (!hasServer())
    return {};
  const auto ofEvent = event_.next ? event_.next() : std::nullopt;
  return keyMapOf(ofEvent ? *ofEvent : keysDown(*server_->connection).value_or(ServerKeySet()),
                  server_->codes);
}

std::uint32_t LinuxKeyboard::eventModifiers() {
  if (!hasServer())
    return 0;
  const auto pointer = xcbReply(xcb_query_pointer_reply(
      server_->connection, xcb_query_pointer(server_->connection, server_->root), nullptr));
  const std::uint32_t now = pointer ? eventModifiersOf(pointer->mask, server_->modifiers) : 0;
  const auto ofEvent = event_.after ? event_.after() : std::nullopt;
  return ofEvent
             ? modifiersDown(keyMapOf(*ofEvent, server_->codes)) | (now & eventModifier::capsLock)
             : now;
}

std::string LinuxKeyboard::layoutIdentifier() {
  if (!hasServer())
    return {};
  const std::vector<std::string> names = ruleNames(server_->rules());
  return layoutIdentifierOf(names[2], names[3], server_->codesGroup);
}

std::int16_t LinuxKeyboard::layoutId() {
  return layoutNumber(layoutIdentifier());
}

std::optional<CharacterTables> LinuxKeyboard::characterTables() {
  if (!hasServer() || !server_->keymap)
    return std::nullopt;
  return CharacterTables{
      layoutId(), layoutIdentifier(),
      characterTablesOf(*server_->context, *server_->keymap, server_->codesGroup)};
}

std::uint32_t LinuxKeyboard::translate(std::uint16_t keyCode) {
  if (!hasServer() || !server_->keymap)
    return 0;
  const CharacterTable table = plainTableOf(*server_->keymap, server_->codesGroup);
  return keyCode < table.size() ? table[keyCode] : 0;
}

} // namespace tavrel
