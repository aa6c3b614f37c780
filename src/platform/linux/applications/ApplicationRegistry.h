#pragma once

#include "platform/linux/applications/MimeAppsList.h"
#include "platform/linux/files/DesktopEntry.h"
#include "platform/linux/system/XdgFolders.h"

#include <cstdint>
#include <map>
#include <memory>
#include <set>

namespace tavrel {

/// An installed application: a desktop entry of type Application.
struct InstalledApplication {
  std::string id;   ///< "org.example.Editor.desktop", with folders as "kde-editor.desktop"
  std::string path; ///< of the entry
  std::shared_ptr<const DesktopEntry> entry;
  std::size_t dataFolder = 0; ///< which of the data folders it is in
};

/// The installed applications and what they open. An entry is read again only when its file has
/// changed, for which one stat of each file is enough.
class ApplicationRegistry {
public:
  explicit ApplicationRegistry(XdgFolders xdg) : xdg_(std::move(xdg)) {}

  /// Reads what has changed. Pointers and references given out before become invalid.
  void refresh();

  /// Sorted by the importance of their folder, then by id. An entry that is marked as deleted is
  /// left out, and hides those of the same id in less important folders.
  [[nodiscard]] const std::vector<InstalledApplication>& applications() const {
    return applications_;
  }

  /// Null when there is none of that id.
  [[nodiscard]] const InstalledApplication* find(std::string_view id) const;

  /// Whether an application has exactly this name, translated or not, or this id, with or without
  /// its ending. Quick from the second time on after a refresh.
  [[nodiscard]] bool isName(const std::string& name) const;

  /// The applications that open a MIME type, preferred ones first: the defaults of user and system,
  /// associations that the user added, then every entry that names the type.
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

  [[nodiscard]] static std::optional<Stamp> stampNow(const std::string& path);
  [[nodiscard]] CachedEntry readEntry(const std::string& path) const;
  void readFolder(std::size_t dataFolder, Cache& current);
  void readLists();

  XdgFolders xdg_;
  Cache cache_;
  std::vector<InstalledApplication> applications_;
  std::map<std::string, const InstalledApplication*, std::less<>> byId_; ///< null: deleted
  std::vector<std::pair<MimeAppsFile, MimeAppsList>> lists_;
  mutable std::set<std::string> names_; ///< empty until somebody asks
};

} // namespace tavrel
