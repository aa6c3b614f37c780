#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// Returns the UTF-16 unit of a text at an index below its length.
template <class T>
concept CharacterAccessor = requires(T accessor, const std::u16string& text, std::size_t index) {
  { accessor(text, index) } -> std::same_as<char16_t>;
};

[[nodiscard]] constexpr bool isDecimalDigit(char16_t unit) {
  return unit >= u'0' && unit <= u'9';
}

/// A run of digits: what it counts, and how many units it takes.
struct DigitRun {
  std::uint64_t value = 0;
  std::size_t length = 0;
};

/// The digits from an index on, as many as there are; a number beyond 64 bits wraps around.
template <CharacterAccessor Character>
[[nodiscard]] DigitRun digitRunAt(const std::u16string& text, std::size_t index,
                                  Character character) {
  DigitRun run;
  for (; index + run.length < text.size(); ++run.length) {
    const char16_t unit = character(text, index + run.length);
    if (!isDecimalDigit(unit))
      break;
    run.value = run.value * 10 + (unit - u'0');
  }
  return run;
}

/// Compares from a start index in each by value: runs of the ASCII digits as numbers, the
/// rest unit by unit, so that capitals come before small letters and digits before both.
/// -1, 0 or 1. This is a strict weak order: a text is a row of tokens, units and numbers, and the
/// tokens have one; texts that count alike ("007" and "7") are equivalent.
template <CharacterAccessor CharacterOfA, CharacterAccessor CharacterOfB>
[[nodiscard]] int compareNumerically(const std::u16string& a, const std::u16string& b,
                                     std::size_t startA, std::size_t startB,
                                     CharacterOfA characterOfA, CharacterOfB characterOfB) {
  if (&a == &b)
    return 0;
  for (std::size_t i = 0;;) {
    const std::size_t leftA = a.size() - startA;
    const std::size_t leftB = b.size() - startB;
    if (i == std::min(leftA, leftB))
      return leftA == leftB ? 0 : leftA < leftB ? -1 : 1;
    const char16_t unitA = characterOfA(a, startA + i);
    const char16_t unitB = characterOfB(b, startB + i);
    if (!isDecimalDigit(unitA) || !isDecimalDigit(unitB)) {
      if (unitA != unitB)
        return unitA < unitB ? -1 : 1;
      ++i;
      continue;
    }
    const DigitRun runA = digitRunAt(a, startA + i, characterOfA);
    const DigitRun runB = digitRunAt(b, startB + i, characterOfB);
    if (runA.value != runB.value)
      return runA.value < runB.value ? -1 : 1;
    startA += i + runA.length;
    startB += i + runB.length;
    i = 0;
  }
}

/// The same for whole texts.
[[nodiscard]] int compareNumerically(const std::u16string& a, const std::u16string& b);

/// The places of the names (UTF-8) in numeric order; of names that count alike the lesser bytes
/// first, so that a folder lists in the same order every time.
[[nodiscard]] std::vector<std::size_t> numericOrder(const std::vector<std::string_view>& names);

} // namespace tavrel
