#pragma once

#include "platform/linux/files/DesktopEntry.h"
#include "platform/linux/system/XdgFolders.h"

#include <string>
#include <vector>

namespace tavrel {

/// Our own keys in an autostart entry.
namespace autostartKey {
inline constexpr const char* path = "X-Tavrel-Path";
inline constexpr const char* hide = "X-Tavrel-Hide";
inline constexpr const char* order = "X-Tavrel-Order";
} // namespace autostartKey

enum class EntryOwner { person, system };

/// One name in the autostart folders, as it counts.
struct AutostartEntry {
  std::string name; ///< of the file
  std::string file; ///< the file that counts
  EntryOwner owner = EntryOwner::person;
  DesktopEntry entry;

  /// Whether we wrote it.
  [[nodiscard]] bool isOurs() const { return !entry.text(autostartKey::path).empty(); }
  /// Its place among the others; 0 for one that nobody gave a place.
  [[nodiscard]] long order() const;
  /// Whether it is opened on this desktop.
  [[nodiscard]] bool isOpened(const XdgFolders& folders) const;
  /// What the list of log-in items calls it.
  [[nodiscard]] std::string itemPath(const XdgFolders& folders) const;
};

/// Every name once, in the order of the list; those marked as deleted, too.
[[nodiscard]] std::vector<AutostartEntry> autostartEntries(const XdgFolders& folders);

} // namespace tavrel
