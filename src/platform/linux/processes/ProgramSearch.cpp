#include "platform/linux/processes/ProgramSearch.h"

#include "platform/linux/files/MountHealth.h"

#include <cstdlib>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

namespace tavrel {

namespace {

bool isProgram(const std::string& path) {
  return askWithTimeout(path, FinalLink::follow, false, [path] {
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           ::access(path.c_str(), X_OK) == 0;
  });
}

/// The user's choice first (xdg-terminal-exec, the Debian alternative), then well-known terminals;
/// each with the option that it takes before a command.
const std::vector<std::vector<std::string>> knownTerminals = {
    {"xdg-terminal-exec"},
    {"x-terminal-emulator", "-e"},
    {"gnome-terminal", "--"},
    {"kgx", "--"},
    {"konsole", "-e"},
    {"xfce4-terminal", "-x"},
    {"mate-terminal", "-x"},
    {"kitty"},
    {"foot"},
    {"alacritty", "-e"},
    {"urxvt", "-e"},
    {"xterm", "-e"},
};

} // namespace

std::optional<std::string> findProgram(const std::string& name) {
  if (name.find('/') != std::string::npos)
    return name.starts_with('/') && isProgram(name) ? std::optional(name) : std::nullopt;
  const char* path = std::getenv("PATH");
  std::istringstream folders(path != nullptr ? path : "/usr/local/bin:/usr/bin:/bin");
  for (std::string folder; !name.empty() && std::getline(folders, folder, ':');)
    if (folder.starts_with('/') && isProgram(folder + "/" + name))
      return folder + "/" + name;
  return std::nullopt;
}

std::vector<std::string> terminalCommand() {
  for (const std::vector<std::string>& terminal : knownTerminals)
    if (const auto program = findProgram(terminal.front())) {
      std::vector<std::string> command = terminal;
      command.front() = *program;
      return command;
    }
  return {};
}

} // namespace tavrel
