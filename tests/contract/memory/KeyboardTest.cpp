#include "contract/KeyboardContract.h"

#include "platform/memory/MemoryKeyboard.h"

#include <string>

namespace tavrel {
namespace {

CharacterTables tablesWith(std::initializer_list<std::pair<std::uint16_t, char>> keys) {
  CharacterTables layout{0, "layout", {{}, {}}};
  for (const auto& [key, character] : keys)
    layout.tables[0][key] = static_cast<std::uint8_t>(character);
  layout.tables[1][0] = 'A';
  return layout;
}

struct MemoryKeyboardWorld {
  MemoryKeyboard adapter;
  Keyboard& keyboard() { return adapter; }

  void use(const std::string& layout) {
    const bool dvorak = layout == "dvorak";
    adapter.control.layoutId = dvorak ? 1 : 0;
    adapter.control.layoutIdentifier =
        dvorak ? "com.apple.keylayout.Dvorak" : "com.apple.keylayout.US";
    adapter.control.tables =
        dvorak ? tablesWith({{34, 'c'}, {5, 'i'}}) : tablesWith({{0, 'a'}, {8, 'c'}, {42, '\\'}});
    adapter.control.translations = {{8, 'c'}, {34, dvorak ? 'c' : 'i'}};
  }
  void press(std::uint16_t key) {
    adapter.control.down.set(key);
    adapter.control.eventModifiers |= modifierOf(key);
  }
  void release(std::uint16_t key) {
    adapter.control.down.clear(key);
    adapter.control.eventModifiers &= ~modifierOf(key);
  }

private:
  static std::uint32_t modifierOf(std::uint16_t key) {
    if (key == keyCode::option)
      return eventModifier::option;
    return key == keyCode::command ? eventModifier::command : 0;
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, KeyboardContract, MemoryKeyboardWorld);

} // namespace
} // namespace tavrel
