#include "platform/linux/places/RecentUses.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

// Whatever the text: no more than is read, and newest first.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto found =
      tavrel::parseRecentUses(std::string_view(reinterpret_cast<const char*>(data), size));
  const auto newer = [](const auto& a, const auto& b) { return a.when > b.when; };
  if (found.uses.size() > 20'000 || !std::is_sorted(found.uses.begin(), found.uses.end(), newer))
    std::abort();
  return 0;
}
