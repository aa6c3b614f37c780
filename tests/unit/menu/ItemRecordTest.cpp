#include "menu/ItemRecord.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(ItemRecord, TheNineTypesAreKnownByTheirExactNames) {
  for (const char* name : {"application", "document file", "package", "folder", "applescript",
                           "url", "services", "group", "spacer"}) {
    EXPECT_NE(itemTypeFromName(name), ItemType::unknown) << name;
    EXPECT_EQ(itemTypeName(itemTypeFromName(name)), name);
  }
  for (const char* name : {"", "Folder", "separator", "document", "folder "})
    EXPECT_EQ(itemTypeFromName(name), ItemType::unknown) << name;
}

TEST(ItemRecord, FiveTypesNameAFile) {
  int files = 0;
  for (const char* name : {"application", "document file", "package", "folder", "applescript",
                           "url", "services", "group", "spacer"})
    files += isFileType(itemTypeFromName(name)) ? 1 : 0;
  EXPECT_EQ(files, 5);
  EXPECT_FALSE(isFileType(ItemType::url));
  EXPECT_FALSE(isFileType(ItemType::unknown));
}

TEST(ItemRecord, AMissingOrWrongOpenTypeHandsOverEverything) {
  EXPECT_EQ(openTypeMask(PropertyList::Dictionary{}), 0);
  EXPECT_EQ(openTypeMask(PropertyList::Dictionary{{TVR_MenuItemOpenType, "3"}}), 0);
  EXPECT_EQ(openTypeMask(PropertyList::Dictionary{{TVR_MenuItemOpenType, 3}}), 3);
}

} // namespace
} // namespace tavrel
