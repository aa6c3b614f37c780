#include "platform/linux/TerminalWindows.h"

#include "platform/linux/ProcessFacts.h"
#include "platform/linux/WindowMatch.h"

#include <algorithm>
#include <array>
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
} // namespace

bool isBareTerminal(const WindowFacts& window) {
  return std::ranges::find(bareTerminalClasses, window.windowClass) != bareTerminalClasses.end();
}

bool isTerminal(const WindowFacts& window, ApplicationRegistry& registry) {
  if (std::ranges::find(terminalClasses, window.windowClass) != terminalClasses.end())
    return true;
  registry.refresh();
  const InstalledApplication* known = applicationOf(window, executableOf(window.pid), registry);
  if (known == nullptr)
    return false;
  const std::vector<std::string> categories = known->entry->categories();
  return std::ranges::find(categories, "TerminalEmulator") != categories.end();
}

} // namespace tavrel
