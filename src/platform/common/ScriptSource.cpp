#include "platform/common/ScriptSource.h"

#include "base/Format.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace tavrel {

namespace {

// Everything else stands for itself in a literal, a line end too.
std::string escaped(const std::string& text) {
  std::string literal;
  for (const char each : text) {
    if (each == '"' || each == '\\')
      literal += '\\';
    literal += each;
  }
  return literal;
}

} // namespace

std::string sourceText(const OwnSource& source) {
  std::vector<std::string> literals;
  std::ranges::transform(source.texts, std::back_inserter(literals), escaped);
  return filledInOrder(source.form, literals);
}

} // namespace tavrel
