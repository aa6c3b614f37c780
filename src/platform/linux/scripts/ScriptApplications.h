#pragma once

#include "platform/linux/scripts/ScriptDesktop.h"

namespace tavrel {

/// What an application is asked: `activate`, `launch`, `quit`, `open`, and whether it is running,
/// in front, there. An application that is neither installed nor running is an error (-1728), and
/// so is what it cannot be asked (-1708).
[[nodiscard]] script::HostAnswer askApplication(ScriptDesktop& desktop,
                                                const script::HostEvent& event);

/// The file manager in its role: what every application is asked, and `reveal`, `exists`, `move`,
/// `duplicate`, where `home` and `desktop` are, and the `selection`, whole or an item of it.
[[nodiscard]] script::HostAnswer askFileManager(ScriptDesktop& desktop,
                                                const script::HostEvent& event);

/// The person's terminal: `do script` opens a window that runs the text and then a shell.
[[nodiscard]] script::HostAnswer askTerminal(ScriptDesktop& desktop,
                                             const script::HostEvent& event);

/// "System Preferences": revealing the pane "Tavrel" starts the preference program, where one is
/// installed, else tells where the preferences are kept.
[[nodiscard]] script::HostAnswer askPreferences(ScriptDesktop& desktop,
                                                const script::HostEvent& event);

/// "System Events": which processes there are, and keys typed in the application in front.
[[nodiscard]] script::HostAnswer askSystemEvents(ScriptDesktop& desktop,
                                                 const script::HostEvent& event);

/// This program: `copy to clipboard`, `convert`, `uninstall`, and what it tells of itself and of
/// the selection.
[[nodiscard]] script::HostAnswer askTavrel(ScriptDesktop& desktop, const script::HostEvent& event);

} // namespace tavrel
