#include "platform/linux/applications/TerminalWindows.h"

#include "platform/linux/applications/WindowMatch.h"
#include "platform/linux/processes/ProcessFacts.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace tavrel {

namespace {
constexpr std::array<std::string_view, 18> terminalClasses{"XTerm",
                                                           "UXTerm",
                                                           "URxvt",
                                                           "Rxvt",
                                                           "Lxterminal",
                                                           "Xfce4-terminal",
                                                           "konsole",
                                                           "kitty",
                                                           "Alacritty",
                                                           "Terminator",
                                                           "Gnome-terminal",
                                                           "st-256color",
                                                           "Mate-terminal",
                                                           "qterminal",
                                                           "tilix",
                                                           "Sakura",
                                                           "org.wezfurlong.wezterm",
                                                           "foot"};
constexpr std::array<std::string_view, 6> bareTerminalClasses{"XTerm", "UXTerm", "KOI8RXTerm",
                                                              "URxvt", "Rxvt",   "Xvt"};
constexpr std::array<std::string_view, 18> terminalPrograms{
    "xterm",          "urxvt",   "rxvt",           "urxvtd",    "lxterminal",
    "xfce4-terminal", "konsole", "kitty",          "alacritty", "gnome-terminal-server",
    "mate-terminal",  "st",      "qterminal",      "tilix",     "sakura",
    "wezterm-gui",    "foot",    "cool-retro-term"};
constexpr std::array<std::string_view, 4> bareTerminalPrograms{"xterm", "urxvt", "rxvt", "urxvtd"};

// The user may have given the window another class, as by "xterm -class".
bool runsAnyOf(std::span<const std::string_view> programs, const WindowFacts& window) {
  const std::string program = std::filesystem::path(executableOf(window.pid)).filename();
  return std::ranges::find(programs, program) != programs.end();
}
} // namespace

bool isBareTerminal(const WindowFacts& window) {
  return std::ranges::find(bareTerminalClasses, window.windowClass) != bareTerminalClasses.end() ||
         runsAnyOf(bareTerminalPrograms, window);
}

bool isKnownTerminal(const WindowFacts& window) {
  return std::ranges::find(terminalClasses, window.windowClass) != terminalClasses.end() ||
         runsAnyOf(terminalPrograms, window);
}

bool isTerminal(const WindowFacts& window, ApplicationRegistry& registry) {
  if (isKnownTerminal(window))
    return true;
  registry.refresh();
  const InstalledApplication* application =
      applicationOf(window, executableOf(window.pid), registry);
  if (application == nullptr)
    return false;
  const std::vector<std::string> categories = application->entry->categories();
  return std::ranges::find(categories, "TerminalEmulator") != categories.end();
}

} // namespace tavrel
