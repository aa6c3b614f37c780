#include "base/Format.h"

namespace tavrel {

namespace {
// `next` answers the text for each place in turn.
template <typename Next> std::string replaced(std::string_view format, Next next) {
  std::string result;
  for (std::size_t at = format.find("%@"); at != std::string_view::npos; at = format.find("%@")) {
    result.append(format.substr(0, at)).append(next());
    format.remove_prefix(at + 2);
  }
  return result.append(format);
}
} // namespace

std::string filled(std::string_view format, std::string_view text) {
  return replaced(format, [text] { return text; });
}

std::string filledInOrder(std::string_view format, const std::vector<std::string>& texts) {
  return replaced(format, [&texts, next = texts.begin()]() mutable {
    return next == texts.end() ? std::string_view() : std::string_view(*next++);
  });
}

} // namespace tavrel
