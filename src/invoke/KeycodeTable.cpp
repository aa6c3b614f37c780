#include "invoke/KeycodeTable.h"

#include "platform/Keyboard.h"
#include "platform/Platform.h"

#include <algorithm>

namespace tavrel {

namespace {

void setName(Ascii2KeyCodeTable& table, const std::string& name) {
  const std::size_t length = std::min<std::size_t>(name.size(), 255);
  table.layoutName[0] = static_cast<std::uint8_t>(length);
  std::copy_n(name.begin(), length, table.layoutName.begin() + 1);
}

void addCharacters(Ascii2KeyCodeTable& table, const CharacterTable& characters) {
  for (std::size_t keyCode = 0; keyCode < characters.size(); ++keyCode) {
    std::int16_t& entry = table.keyCodeForChar[characters[keyCode]];
    if (entry == -1)
      entry = static_cast<std::int16_t>(keyCode);
  }
}

} // namespace

std::int16_t InitAscii2KeyCodeTable(Ascii2KeyCodeTable& table) {
  table.keyCodeForChar.fill(-1);
  table.layoutId = platform().keyboard.layoutId();
  const auto layout = platform().keyboard.characterTables();
  if (!layout)
    return resourceNotFound;
  setName(table, layout->layoutName);
  for (const CharacterTable& characters : layout->tables)
    addCharacters(table, characters);
  return 0;
}

std::int16_t ValidateAscii2KeyCodeTable(Ascii2KeyCodeTable& table, bool& rebuilt) {
  rebuilt = platform().keyboard.layoutId() != table.layoutId;
  return rebuilt ? InitAscii2KeyCodeTable(table) : std::int16_t{0};
}

std::int16_t AsciiToKeyCode(const Ascii2KeyCodeTable& table, std::uint16_t character) {
  return character > 255 ? std::int16_t{0} : table.keyCodeForChar[character];
}

std::int8_t KeyCodeToAscii(std::uint16_t keyCode) {
  const std::uint32_t typed = platform().keyboard.translate(keyCode);
  const std::uint32_t low = typed & 0xFF;
  return static_cast<std::int8_t>(low != 0 ? low : (typed >> 16) & 0xFF);
}

std::string GetKchrName(const Ascii2KeyCodeTable& table) {
  const auto start = table.layoutName.begin() + 1;
  return std::string(start, start + table.layoutName[0]);
}

} // namespace tavrel
