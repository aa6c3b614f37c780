#include "platform/linux/files/DesktopEntry.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto entry = tavrel::parseDesktopEntry(text);
  if (!entry)
    return 0;
  for (const auto& [name, group] : entry->groups)
    for (const auto& [key, value] : group) {
      (void)entry->text(key);
      (void)entry->list(key);
      (void)entry->name(key);
      (void)entry->actions(value);
    }
  return 0;
}
