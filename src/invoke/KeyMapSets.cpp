#include "invoke/KeyMapSets.h"

#include "platform/Platform.h"
#include "platform/SystemLog.h"

#include <cstdio>
#include <string>

namespace tavrel {

void keyMapInit(KeyMap& map) {
  map.bytes.fill(0);
}

void keyMapAddKeyCode(KeyMap& map, std::uint32_t keyCode) {
  map.set(keyCode);
}

void keyMapInvert(KeyMap& map) {
  for (std::uint8_t& byte : map.bytes)
    byte = static_cast<std::uint8_t>(~byte);
}

bool keyMapAND(const KeyMap& a, const KeyMap& b) {
  for (std::size_t i = 0; i < a.bytes.size(); ++i)
    if ((a.bytes[i] & b.bytes[i]) != 0)
      return true;
  return false;
}

void logKeyMap(const KeyMap& map) {
  std::string line = "KeyMap ";
  for (const std::uint8_t byte : map.bytes) {
    char text[8];
    std::snprintf(text, sizeof text, " %02hhX", byte);
    line += text;
  }
  platform().log.write(line);
}

} // namespace tavrel
