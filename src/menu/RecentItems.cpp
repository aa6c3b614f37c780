#include "menu/RecentItems.h"

#include "base/LocalUrl.h"
#include "controller/Localized.h"
#include "controller/ProcessState.h"
#include "controller/SystemVersion.h"
#include "exec/ItemAction.h"
#include "menu/MenuEdits.h"
#include "menu/MenuIcons.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Preferences.h"

namespace tavrel {

namespace {

constexpr const char* itemName = "Name";
constexpr const char* itemBookmark = "Bookmark";
constexpr const char* itemAlias = "Alias";

bool isServers(const std::string& key) {
  return key == "RecentServers" || key == "Servers";
}

// The items of the section, in stored order; null when it has none.
const PropertyList::Array* customItems(const std::optional<PropertyList>& section) {
  const PropertyList::Array* items = section ? section->arrayFor("CustomListItems") : nullptr;
  return items && !items->empty() ? items : nullptr;
}

// The data is kept even when it leads nowhere now: an entry without any would count as a server.
void setBookmarkedItem(MenuItem& item, const Bytes& bookmark, const PropertyList& data) {
  const auto url = platform().files.resolveBookmark(bookmark, BookmarkResolution::withoutMounting);
  item.representedObject = data;
  const auto path = url ? localPathOfUrl(*url) : std::nullopt;
  if (path)
    setMenuItemIcon(item, path);
  else
    item.image = blankIcon;
}

void setAliasedItem(MenuItem& item, const Bytes& alias, const PropertyList& data,
                    const std::string& key) {
  if (key != "RecentServers")
    item.representedObject = data;
  if (const auto path =
          platform().files.resolveAliasRecord(alias, AliasResolution::withoutInterface))
    setMenuItemIcon(item, path);
  else
    item.image = isServers(key) ? serverIcon : blankIcon;
}

void fitRecentItem(MenuItem& item, const PropertyList& record, const std::string& key) {
  const bool bookmarked = hasBookmarks() && key != "RecentServers";
  const char* kind = bookmarked ? itemBookmark : itemAlias;
  const Bytes* data = record.dataFor(kind);
  if (data && bookmarked)
    setBookmarkedItem(item, *data, *record.find(kind));
  else if (data)
    setAliasedItem(item, *data, *record.find(kind), key);
  else if (!bookmarked)
    item.image = blankIcon;
}

} // namespace

void addRecentItems(Menu& menu) {
  std::size_t index = 0;
  for (const char* section : {"Applications", "Documents", "Servers"}) {
    platform().preferences.synchronize(recentItemsDomain);
    index = attachRecentItems(menu, (hasBookmarks() ? "Recent" : "") + std::string(section), index);
  }
}

std::size_t attachRecentItems(Menu& menu, const std::string& key, std::size_t index) {
  const auto section = platform().preferences.value(recentItemsDomain, key);
  const PropertyList::Array* items = customItems(section);
  if (!items)
    return index;
  menu.add({.title = localized(key)});
  ++index;
  for (const PropertyList& record : *items) {
    const std::string* name = record.stringFor(itemName);
    MenuItem& item = menu.add({.title = name ? *name : std::string()});
    item.action = MenuAction::recentItemSelected;
    setMenuItemIndent(menu, index++, 1);
    fitRecentItem(item, record, key);
    item.effects = effectsOf(actionForRecentItem, {.isServer = !item.representedObject});
  }
  if (isServers(key))
    return index;
  menu.addSeparator();
  return index + 1;
}

} // namespace tavrel
