#pragma once

#include "platform/linux/applications/MimeAppsList.h"
#include "platform/linux/files/DesktopEntry.h"
#include "platform/linux/system/XdgFolders.h"

#include <cstdint>
#include <map>
#include <memory>

namespace tavrel {

/// An installed application: a desktop entry of type Application.
struct InstalledApplication {
  std::string id;   ///< "org.example.Editor.desktop", with folders as "kde-editor.desktop"
  std::string path; ///< of the entry
  std::shared_ptr<const DesktopEntry> entry;
  std::size_t dataFolder = 0; ///< which of the data folders it is in
};

/// The installed applications and what they open. Entries are read again when they change on the
/// disk; asking whether they did costs a look at each file's time.
class ApplicationRegistry {
public:
  explicit ApplicationRegistry(XdgFolders folders) : folders_(std::move(folders)) {}

  /// Looks for changes. Pointers given out before become invalid.
  void refresh();

  /// Ordered by the importance of their folder, then by id. An entry that counts as deleted is not
  /// there, and hides those of its id in lesser folders.
  [[nodiscard]] const std::vector<InstalledApplication>& applications() const {
    return applications_;
  }

  /// Null when there is none of that id.
  [[nodiscard]] const InstalledApplication* find(std::string_view id) const;

  /// Those that open a MIME type, most wanted first: the person's and the system's defaults, what
  /// was added by hand, then every entry that names the type.
  [[nodiscard]] std::vector<const InstalledApplication*>
  handlersOf(std::string_view mimeType) const;

private:
  struct Stamp {
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t modified = 0; ///< nanoseconds
    friend bool operator==(const Stamp&, const Stamp&) = default;
  };
  struct CachedEntry {
    Stamp stamp;
    std::shared_ptr<const DesktopEntry> entry; ///< null for a file that is none
  };
  using Cache = std::map<std::string, CachedEntry>; ///< by path

  [[nodiscard]] CachedEntry readEntry(const std::string& path) const;
  void readFolder(std::size_t dataFolder, Cache& seen);
  void readLists();

  XdgFolders folders_;
  Cache cache_;
  std::vector<InstalledApplication> applications_;
  std::map<std::string, const InstalledApplication*, std::less<>> byId_; ///< null: deleted
  std::vector<std::pair<MimeAppsFile, MimeAppsList>> lists_;
};

} // namespace tavrel
