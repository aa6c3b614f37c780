#pragma once

#include "base/PropertyList.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tavrel {

/// The keys of an item record: one dictionary per menu entry.
inline constexpr const char* TVR_MenuItemType = "TVR_MenuItemType";
inline constexpr const char* TVR_MenuItemTitle = "TVR_MenuItemTitle";
inline constexpr const char* TVR_MenuItemURL = "TVR_MenuItemURL";
inline constexpr const char* TVR_MenuItemBookmark = "TVR_MenuItemBookmark";
inline constexpr const char* TVR_MenuItemPath = "TVR_MenuItemPath";
inline constexpr const char* TVR_MenuItemIcon = "TVR_MenuItemIcon";
inline constexpr const char* TVR_MenuItemTree = "TVR_MenuItemTree";
inline constexpr const char* TVR_MenuItemShortcutString = "TVR_MenuItemShortcutString";
inline constexpr const char* TVR_MenuItemShortcutModifier = "TVR_MenuItemShortcutModifier";
inline constexpr const char* TVR_MenuItemShortcutKeyCode = "TVR_MenuItemShortcutKeyCode";
inline constexpr const char* TVR_MenuItemInvokers = "TVR_MenuItemInvokers";
inline constexpr const char* TVR_MenuItemSelectionTypes = "TVR_MenuItemSelectionTypes";
inline constexpr const char* TVR_MenuItemOpenType = "TVR_MenuItemOpenType";

/// What an item is. Every other text, and none, is `unknown`: an ordinary entry that does nothing.
enum class ItemType {
  unknown,
  application,
  documentFile,
  package,
  folder,
  appleScript,
  url,
  services,
  group,
  spacer,
};

/// By the exact text: "application", "document file", "package", ...
[[nodiscard]] ItemType itemTypeFromName(std::string_view name);

/// The text of a type; empty for `unknown`.
[[nodiscard]] std::string itemTypeName(ItemType type);

[[nodiscard]] ItemType itemType(const PropertyList& record);

/// Whether the type names a file on disk.
[[nodiscard]] bool isFileType(ItemType type);

/// Bits of `TVR_MenuItemOpenType`: which selected items an application does not get.
namespace openType {
inline constexpr std::int32_t noFiles = 1; ///< plain files and packages
inline constexpr std::int32_t noFolders = 2;
} // namespace openType

/// The open-type mask of a record, 0 when missing.
[[nodiscard]] std::int32_t openTypeMask(const PropertyList& record);

} // namespace tavrel
