#pragma once

#include "platform/Applications.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tavrel {

/// Opens files with an application, those that the open-type mask (bits of `openType`) lets
/// through; with none left the application is opened alone. Returns the launch status, 0 for
/// success.
std::int32_t openFiles(const std::vector<std::string>& paths, const std::string& application,
                       std::int32_t mask);

/// Hands file URLs to the application at a path, whatever application owns them.
std::int32_t OpenDocuments(const std::vector<std::string>& urls, const std::string& application);

/// Moves the captured files into a folder, or copies them while Shift is held. All files are
/// looked for in the folder of the last one. False, and silence, without captured files; a sound
/// tells success, the beep failure.
bool moveSelectedFiles(const std::string& destination);

/// Reveals a path in the user's file browser: in Path Finder where the settings say so. The path
/// stands in a script source as it is, so one with a quotation mark is not revealed.
void showInFinder(const std::string& path);

/// Opens a terminal in a folder, in the home folder for an empty path. A path with a single quote
/// makes a command that fails.
void openFolderWithTerminal(const std::string& path);

/// The flavor number of a process, 0 when unknown.
[[nodiscard]] std::int32_t GetApplicationFlavor(ProcessSerialNumber process);

} // namespace tavrel
