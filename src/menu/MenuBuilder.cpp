#include "menu/MenuBuilder.h"

#include "menu/ItemRecord.h"
#include "menu/MenuTitles.h"
#include "menu/RecordEntry.h"

namespace tavrel {

namespace {

// One menu being filled. Levels are kept in a list, since recursion over a deep tree would overflow
// the stack.
struct Level {
  Menu* menu;
  const PropertyList::Array* records;
  std::size_t next = 0;
};

RecordPlace placeOf(const std::vector<Level>& levels) {
  RecordPlace place;
  for (const Level& level : levels)
    place.push_back(level.next);
  return place;
}

Menu& addGroup(Menu& menu, const std::string& title, const PropertyList& record,
               const MenuBuild& build) {
  MenuItem group;
  group.title = title;
  group.representedObject = record;
  group.submenu = std::make_shared<Menu>(groupMenuTitle);
  group.submenu->delegate = build.delegate;
  return *menu.add(std::move(group)).submenu;
}

void openGroup(std::vector<Level>& levels, Menu& submenu, const PropertyList& record) {
  if (const auto* children = record.arrayFor(TVR_MenuItemTree))
    levels.push_back({&submenu, children});
}

void addRecord(std::vector<Level>& levels, const PropertyList& record, const std::string& title,
               const MenuBuild& build) {
  Menu& menu = *levels.back().menu;
  switch (itemType(record)) {
  case ItemType::spacer:
    menu.addSeparator().representedObject = record;
    return;
  case ItemType::group:
    return openGroup(levels, addGroup(menu, title, record, build), record);
  case ItemType::unknown:
  case ItemType::application:
  case ItemType::documentFile:
  case ItemType::package:
  case ItemType::folder:
  case ItemType::appleScript:
  case ItemType::url:
  case ItemType::services:
    return addRecordEntry(menu, record, title, build);
  }
}

} // namespace

std::string recordPlaceText(const RecordPlace& place) {
  std::string text;
  for (std::size_t number : place)
    text.append(text.empty() ? "" : ".").append(std::to_string(number));
  return text;
}

std::optional<RecordPlace> buildRecords(Menu& menu, const PropertyList::Array& records,
                                        const MenuBuild& build) {
  std::vector<Level> levels{{&menu, &records}};
  while (!levels.empty()) {
    Level& level = levels.back();
    if (level.next == level.records->size()) {
      levels.pop_back();
      continue;
    }
    const PropertyList& record = (*level.records)[level.next++];
    const std::string* title = record.stringFor(TVR_MenuItemTitle);
    if (!title)
      return placeOf(levels);
    addRecord(levels, record, *title, build);
  }
  return std::nullopt;
}

} // namespace tavrel
