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

enum class EntryOwner { user, system };

/// A file name in the autostart folders, with the entry that counts for it.
struct AutostartEntry {
  std::string name; ///< of the file
  std::string file; ///< the file that counts
  EntryOwner owner = EntryOwner::user;
  DesktopEntry entry;

  /// Whether we wrote it.
  [[nodiscard]] bool isOurs() const { return !entry.text(autostartKey::path).empty(); }
  /// Its position among the entries that we wrote; 0 for others.
  [[nodiscard]] long order() const;
  /// Whether it is started on this desktop.
  [[nodiscard]] bool isStarted(const XdgFolders& xdg) const;
  /// The path in its log-in item: the application, program or document that it starts.
  [[nodiscard]] std::string itemPath(const XdgFolders& xdg) const;
};

/// Every name once, in the order of the log-in items; entries that are marked as deleted, too.
[[nodiscard]] std::vector<AutostartEntry> autostartEntries(const XdgFolders& xdg);

} // namespace tavrel
