#include "platform/linux/MountPoints.h"

#include <fstream>
#include <sstream>

namespace tavrel {

namespace {

bool isOctal(char c) {
  return c >= '0' && c <= '7';
}

/// Blanks and the like stand as a backslash and three octal digits.
std::string unescapedOctal(const std::string& text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool escape = text[i] == '\\' && i + 3 < text.size() && isOctal(text[i + 1]) &&
                        isOctal(text[i + 2]) && isOctal(text[i + 3]);
    result += escape ? static_cast<char>(std::stoi(text.substr(i + 1, 3), nullptr, 8)) : text[i];
    i += escape ? 3 : 0;
  }
  return result;
}

} // namespace

std::set<std::string> mountPoints() {
  std::ifstream mounts("/proc/self/mountinfo");
  std::set<std::string> points;
  for (std::string line; std::getline(mounts, line);) {
    std::istringstream fields(line);
    std::string id, parent, device, root, point;
    if (fields >> id >> parent >> device >> root >> point)
      points.insert(unescapedOctal(point));
  }
  return points;
}

} // namespace tavrel
