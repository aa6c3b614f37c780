#pragma once

#include <string>

namespace tavrel {

/// Whether an application opens out of sight at log-in.
enum class LoginHide { no, yes };

/// The list of what is opened at log-in, as the log-in window's domain keeps it. Paths are compared
/// as they are written.
class NTLoginItemMgr {
public:
  /// The position of the first item with this path, counted from 0; -1 when there is none.
  [[nodiscard]] static int loginIndex(const std::string& path);
  [[nodiscard]] static bool isLoginItem(const std::string& path);
  /// Puts an item at the end; one that is listed moves there.
  static void addLoginItem(const std::string& path, LoginHide hide);
  /// Takes the first item with this path out.
  static void removeLoginItem(const std::string& path);
  /// Moves an item to the end when it is the first; one that stands elsewhere stays.
  static void reorderLoginItemToEnd(const std::string& path, LoginHide hide);
};

} // namespace tavrel
