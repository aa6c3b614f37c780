#include "menu/ItemRecord.h"

#include "base/Numbers.h"

namespace tavrel {

namespace {
std::string_view nameOf(ItemType type) {
  switch (type) {
  case ItemType::unknown:
    return {};
  case ItemType::application:
    return "application";
  case ItemType::documentFile:
    return "document file";
  case ItemType::package:
    return "package";
  case ItemType::folder:
    return "folder";
  case ItemType::appleScript:
    return "applescript";
  case ItemType::url:
    return "url";
  case ItemType::services:
    return "services";
  case ItemType::group:
    return "group";
  case ItemType::spacer:
    return "spacer";
  }
  return {};
}
} // namespace

// Through all types by their numbers: the first number without a name is behind the last type.
ItemType itemTypeFromName(std::string_view name) {
  for (int number = 1; !nameOf(ItemType{number}).empty(); ++number)
    if (nameOf(ItemType{number}) == name)
      return ItemType{number};
  return ItemType::unknown;
}

std::string itemTypeName(ItemType type) {
  return std::string(nameOf(type));
}

ItemType itemType(const PropertyList& record) {
  const std::string* name = record.stringFor(TVR_MenuItemType);
  return name ? itemTypeFromName(*name) : ItemType::unknown;
}

bool isFileType(ItemType type) {
  switch (type) {
  case ItemType::application:
  case ItemType::documentFile:
  case ItemType::package:
  case ItemType::folder:
  case ItemType::appleScript:
    return true;
  case ItemType::unknown:
  case ItemType::url:
  case ItemType::services:
  case ItemType::group:
  case ItemType::spacer:
    return false;
  }
  return false;
}

std::int32_t openTypeMask(const PropertyList& record) {
  const PropertyList* mask = record.find(TVR_MenuItemOpenType);
  return mask ? int32Value(*mask).value_or(0) : 0;
}

} // namespace tavrel
