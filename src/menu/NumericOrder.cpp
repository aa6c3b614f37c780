#include "menu/NumericOrder.h"

#include "base/Utf8.h"

#include <numeric>

namespace tavrel {

namespace {
// A lambda, because the compiler inlines it into the loop; a function it calls.
constexpr auto unitAt = [](const std::u16string& text, std::size_t index) { return text[index]; };

// Each name is converted once, before sorting: comparisons would convert it again and again.
std::vector<std::u16string> unitsOf(const std::vector<std::string_view>& names) {
  std::vector<std::u16string> texts;
  texts.reserve(names.size());
  for (const std::string_view name : names)
    texts.push_back(utf16FromUtf8(name));
  return texts;
}
} // namespace

int compareNumerically(const std::u16string& a, const std::u16string& b) {
  return compareNumerically(a, b, 0, 0, unitAt, unitAt);
}

std::vector<std::size_t> numericOrder(const std::vector<std::string_view>& names) {
  const std::vector<std::u16string> texts = unitsOf(names);
  std::vector<std::size_t> order(names.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    const int sign = compareNumerically(texts[a], texts[b]);
    return sign != 0 ? sign < 0 : names[a] < names[b];
  });
  return order;
}

} // namespace tavrel
