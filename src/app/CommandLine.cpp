#include "app/CommandLine.h"

#include "platform/Preferences.h"

#include <string_view>

namespace tavrel {

Command commandFromArguments(std::span<const char* const> arguments) {
  if (arguments.empty())
    return Command::start;
  const std::string_view argument = arguments.front();
  if (arguments.size() > 1)
    return Command::misuse;
  if (argument == "--help")
    return Command::help;
  return argument == "--version" ? Command::version : Command::misuse;
}

std::string helpText() {
  return "Usage: tavrel [--help | --version]\n"
         "\n"
         "Shows your own launcher menu in the desktop's status area. The menu and all\n"
         "settings are read from " +
         std::string(preferenceDomain) +
         ".plist in the folder $XDG_CONFIG_HOME\n"
         "(~/.config when it is not set).\n"
         "\n"
         "  --help     prints this text\n"
         "  --version  prints the version\n";
}

} // namespace tavrel
