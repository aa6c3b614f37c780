#include "platform/linux/system/LinuxSystemLog.h"

#include <cstdio>

namespace tavrel {

// What follows a line feed is indented, so that it cannot be taken for an entry of its own.
void LinuxSystemLog::write(const std::string& line) {
  std::string entry = "tavrel: ";
  for (char c : line)
    c == '\n' ? entry.append("\n  ") : entry.append(1, c);
  entry += '\n';
  std::fputs(entry.c_str(), stderr);
}

} // namespace tavrel
