#include "base/LetterCase.h"

#include <algorithm>
#include <array>

namespace tavrel {

namespace {
// Capitals from first to last; each small letter stands `distance` behind its capital.
struct LetterRange {
  char16_t first;
  char16_t last;
  char16_t distance;
};

constexpr auto letterRanges = std::to_array<LetterRange>({
    {u'A', u'Z', 0x20},
    {0x00C0, 0x00D6, 0x20},
    {0x00D8, 0x00DE, 0x20},
    {0x0391, 0x03A1, 0x20},
    {0x03A3, 0x03AB, 0x20},
    {0x0400, 0x040F, 0x50},
    {0x0410, 0x042F, 0x20},
});
} // namespace

char16_t upperCase(char16_t character) {
  const auto range = std::find_if(letterRanges.begin(), letterRanges.end(), [&](const auto& each) {
    return character >= each.first + each.distance && character <= each.last + each.distance;
  });
  return range == letterRanges.end() ? character
                                     : static_cast<char16_t>(character - range->distance);
}

char16_t lowerCase(char16_t character) {
  const auto range = std::find_if(letterRanges.begin(), letterRanges.end(), [&](const auto& each) {
    return character >= each.first && character <= each.last;
  });
  return range == letterRanges.end() ? character
                                     : static_cast<char16_t>(character + range->distance);
}

} // namespace tavrel
