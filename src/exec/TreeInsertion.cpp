#include "controller/PreferenceStore.h"
#include "controller/SettingKeys.h"
#include "controller/TVController.h"
#include "menu/ItemRecord.h"
#include "menu/PathHelpers.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Preferences.h"

namespace tavrel {

namespace {
// A file of no item type is added, too, as an empty record: each captured file has its place.
PropertyList recordOfFile(const std::string& path) {
  const std::string clean = cleanedUpPath(path);
  const std::string type = itemTypeFromPath(clean);
  if (!isFileType(itemTypeFromName(type)))
    return PropertyList::Dictionary{};
  return PropertyList::Dictionary{
      {TVR_MenuItemType, type},
      {TVR_MenuItemTitle, platform().files.displayName(clean)},
      {TVR_MenuItemURL, fileUrlForPath(clean)},
      {TVR_MenuItemTree, PropertyList::Array{}},
  };
}
} // namespace

void TVController::insertFileItemsToPlist(const std::vector<std::string>& paths) {
  const std::optional<PropertyList>& root = launcher_.menuRootArray;
  PropertyList::Array tree = root ? *root->array() : PropertyList::Array{};
  for (const std::string& path : paths)
    tree.push_back(recordOfFile(path));
  TVR_SetObjectForKey(tree, TVR_MenuTree);
  platform().preferences.synchronize(preferenceDomain);
  launcher_.needToRecreateMenu = true;
}

} // namespace tavrel
