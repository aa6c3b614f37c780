#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// An additional action of an application, as "New Window".
struct DesktopAction {
  std::string id;
  std::string name; ///< in the locale asked for
  std::string icon;
  std::string exec;
};

/// A file in the freedesktop.org Desktop Entry format, version 1.5. Every text is empty, every
/// list empty and every boolean false when its key is missing. Texts are unescaped, but for the
/// quoting and field codes of a command line. Bytes that are not UTF-8 are kept.
struct DesktopEntry {
  using Group = std::map<std::string, std::string, std::less<>>;
  /// By group name, then key (localized ones with their bracket: "Name[de]"); values as written.
  std::map<std::string, Group, std::less<>> groups;

  [[nodiscard]] std::string type() const { return text("Type"); }
  /// The locale as in LC_MESSAGES ("sr_YU.UTF-8@Latn"); the plain name when it has none.
  [[nodiscard]] std::string name(std::string_view locale = {}) const;
  [[nodiscard]] std::string icon(std::string_view locale = {}) const;
  [[nodiscard]] std::string exec() const { return text("Exec"); }
  [[nodiscard]] std::string tryExec() const { return text("TryExec"); }
  [[nodiscard]] std::string url() const { return text("URL"); }
  /// The folder to start the program in.
  [[nodiscard]] std::string path() const { return text("Path"); }
  [[nodiscard]] bool terminal() const { return boolean("Terminal"); }
  [[nodiscard]] bool dbusActivatable() const { return boolean("DBusActivatable"); }
  [[nodiscard]] bool startupNotify() const { return boolean("StartupNotify"); }
  [[nodiscard]] std::string startupWmClass() const { return text("StartupWMClass"); }
  [[nodiscard]] std::vector<std::string> mimeTypes() const { return list("MimeType"); }
  [[nodiscard]] std::vector<std::string> categories() const { return list("Categories"); }
  [[nodiscard]] bool noDisplay() const { return boolean("NoDisplay"); }
  /// The user deleted the entry: it hides one of the same name in a lesser folder.
  [[nodiscard]] bool hidden() const { return boolean("Hidden"); }
  [[nodiscard]] std::vector<std::string> onlyShowIn() const { return list("OnlyShowIn"); }
  [[nodiscard]] std::vector<std::string> notShowIn() const { return list("NotShowIn"); }
  /// Those of the Actions key that have a group, in its order.
  [[nodiscard]] std::vector<DesktopAction> actions(std::string_view locale = {}) const;

  /// Any key of the main group.
  [[nodiscard]] std::string text(std::string_view key) const;
  [[nodiscard]] bool boolean(std::string_view key) const;
  [[nodiscard]] std::vector<std::string> list(std::string_view key) const;
};

/// Malformed lines are skipped; of a key written twice the last counts. Nothing for a text without
/// the group "Desktop Entry".
[[nodiscard]] std::optional<DesktopEntry> parseDesktopEntry(std::string_view text);

/// Nothing when no regular file is there, it cannot be read, is no entry or is larger than 1 MiB
/// (many times the largest in use).
[[nodiscard]] std::optional<DesktopEntry> loadDesktopEntry(const std::string& path);

/// The locale of messages: the first of LC_ALL, LC_MESSAGES and LANG that is set; empty for none.
[[nodiscard]] std::string messagesLocale();

} // namespace tavrel
