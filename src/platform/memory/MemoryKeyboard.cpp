#include "platform/memory/MemoryKeyboard.h"

namespace tavrel {

std::uint32_t MemoryKeyboard::translate(std::uint16_t keyCode) {
  const auto found = control.translations.find(keyCode);
  return found == control.translations.end() ? 0 : found->second;
}

} // namespace tavrel
