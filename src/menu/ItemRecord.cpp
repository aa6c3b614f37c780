#include "menu/ItemRecord.h"

#include "base/Numbers.h"

#include <array>
#include <utility>

namespace tavrel {

namespace {
constexpr auto typeNames = std::to_array<std::pair<ItemType, std::string_view>>({
    {ItemType::application, "application"},
    {ItemType::documentFile, "document file"},
    {ItemType::package, "package"},
    {ItemType::folder, "folder"},
    {ItemType::appleScript, "applescript"},
    {ItemType::url, "url"},
    {ItemType::services, "services"},
    {ItemType::group, "group"},
    {ItemType::spacer, "spacer"},
});
} // namespace

ItemType itemTypeFromName(std::string_view name) {
  for (const auto& [type, text] : typeNames)
    if (text == name)
      return type;
  return ItemType::unknown;
}

std::string itemTypeName(ItemType type) {
  for (const auto& [candidate, text] : typeNames)
    if (candidate == type)
      return std::string(text);
  return {};
}

ItemType itemType(const PropertyList& record) {
  const std::string* name = record.stringFor(TVR_MenuItemType);
  return name ? itemTypeFromName(*name) : ItemType::unknown;
}

bool isFileType(ItemType type) {
  return type == ItemType::application || type == ItemType::documentFile ||
         type == ItemType::package || type == ItemType::folder || type == ItemType::appleScript;
}

std::int32_t openTypeMask(const PropertyList& record) {
  const PropertyList* mask = record.find(TVR_MenuItemOpenType);
  return mask ? int32Value(*mask).value_or(0) : 0;
}

} // namespace tavrel
