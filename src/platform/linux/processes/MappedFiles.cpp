#include "platform/linux/processes/MappedFiles.h"

#include <fstream>
#include <string>

namespace tavrel {

void forEachMappedFile(std::int32_t pid, const std::function<void(std::string_view)>& visit) {
  std::ifstream file("/proc/" + std::to_string(pid) + "/maps");
  std::string line, last;
  while (std::getline(file, line)) {
    const std::size_t slash = line.rfind('/');
    if (slash == std::string::npos || line.compare(slash + 1, std::string::npos, last) == 0)
      continue;
    last = line.substr(slash + 1);
    visit(last);
  }
}

} // namespace tavrel
