#pragma once

#include "platform/linux/scripts/ScriptDesktop.h"

namespace tavrel {

/// What every application understands: `activate`, `launch`, `quit`, `open`, and whether it is
/// running, in front, installed. An application that is neither installed nor running is an error
/// (-1728), any other command is -1708.
[[nodiscard]] script::HostAnswer askApplication(ScriptDesktop& desktop,
                                                const script::HostEvent& event);

/// The file manager in its role: what every application is asked, and `reveal`, `exists`, `move`,
/// `duplicate`, where `home` and `desktop` are, and the `selection`, whole or an item of it.
[[nodiscard]] script::HostAnswer askFileManager(ScriptDesktop& desktop,
                                                const script::HostEvent& event);

/// The user's terminal: `do script` opens a window that runs the text and then a shell.
[[nodiscard]] script::HostAnswer askTerminal(ScriptDesktop& desktop,
                                             const script::HostEvent& event);

/// "System Preferences": revealing the pane "Tavrel" starts the preference program, where one is
/// installed; else the log says where the preferences are.
[[nodiscard]] script::HostAnswer askPreferences(ScriptDesktop& desktop,
                                                const script::HostEvent& event);

/// "System Events": which processes there are, and keys typed in the application in front.
[[nodiscard]] script::HostAnswer askSystemEvents(ScriptDesktop& desktop,
                                                 const script::HostEvent& event);

/// This program: `copy to clipboard`, `convert`, `uninstall`, and its properties, as the version
/// and the selection (`context object`).
[[nodiscard]] script::HostAnswer askTavrel(ScriptDesktop& desktop, const script::HostEvent& event);

} // namespace tavrel
