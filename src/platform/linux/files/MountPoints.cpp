#include "platform/linux/files/MountPoints.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>
#include <string_view>
#include <vector>

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

struct Mount {
  std::string point;
  std::string type;
};

/// A line holds four fields, the mount point, options, a dash, the type and more.
std::vector<Mount> mounts() {
  std::ifstream table("/proc/self/mountinfo");
  std::vector<Mount> result;
  for (std::string line; std::getline(table, line);) {
    std::istringstream fields(line);
    std::string id, parent, device, root, point, option, type;
    fields >> id >> parent >> device >> root >> point;
    while (fields >> option && option != "-") {
    }
    if (fields >> type)
      result.push_back({unescapedOctal(point), type});
  }
  return result;
}

bool isDistant(std::string_view type) {
  constexpr std::array<std::string_view, 13> types{
      "fuse", "nfs",  "nfs4", "cifs",   "smb3",  "9p",    "ceph",
      "afs",  "coda", "gfs2", "lustre", "ncpfs", "autofs"}; // this one mounts the others
  return type.starts_with("fuse.") || std::ranges::find(types, type) != types.end();
}

} // namespace

std::set<std::string> mountPoints() {
  std::set<std::string> points;
  for (Mount& mount : mounts())
    points.insert(std::move(mount.point));
  return points;
}

std::set<std::string> distantMountPoints() {
  std::set<std::string> points;
  for (Mount& mount : mounts())
    if (isDistant(mount.type))
      points.insert(std::move(mount.point));
  return points;
}

} // namespace tavrel
