#include "base/Format.h"

namespace tavrel {

std::string filled(std::string_view format, std::string_view text) {
  std::string result;
  for (std::size_t at = format.find("%@"); at != std::string_view::npos; at = format.find("%@")) {
    result.append(format.substr(0, at)).append(text);
    format.remove_prefix(at + 2);
  }
  return result.append(format);
}

} // namespace tavrel
