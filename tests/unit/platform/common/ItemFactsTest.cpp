#include "platform/common/ItemFacts.h"

#include <gtest/gtest.h>

namespace tavrel {

TEST(ItemFacts, AFileAFolderAndAPackageHaveTheirFlags) {
  EXPECT_EQ(itemFlags({}), itemFlag::plainFile);
  EXPECT_EQ(itemFlags({.isDirectory = true}), itemFlag::container);
  EXPECT_EQ(itemFlags({.isDirectory = true, .isPackage = true}),
            itemFlag::container | itemFlag::package);
}

TEST(ItemFacts, AnApplicationIsAContainerAndMayBeScriptable) {
  ItemFacts application{.isDirectory = true, .isPackage = true, .isApplication = true};
  const std::uint32_t plain = itemFlag::container | itemFlag::package | itemFlag::nativeApplication;
  EXPECT_EQ(itemFlags(application), plain);
  application.isScriptable = true;
  EXPECT_EQ(itemFlags(application), plain | itemFlag::scriptableApplication);
}

TEST(ItemFacts, OnlyAnApplicationIsAScriptableOne) {
  EXPECT_EQ(itemFlags({.isScriptable = true}), itemFlag::plainFile);
}

TEST(ItemFacts, AnAliasIsAFileAndASymbolicLinkIsNothingElse) {
  EXPECT_EQ(itemFlags({.isAlias = true}), itemFlag::plainFile | itemFlag::aliasFile);
  EXPECT_EQ(itemFlags({.isSymlink = true, .isAlias = true}), itemFlag::symlink);
  EXPECT_TRUE(isAliasFile({.isAlias = true}));
  EXPECT_FALSE(isAliasFile({.isSymlink = true, .isAlias = true}));
}

TEST(ItemFacts, WhatIsHiddenIsInvisibleWhateverItIs) {
  EXPECT_EQ(itemFlags({.isHidden = true}), itemFlag::plainFile | itemFlag::invisible);
  EXPECT_EQ(itemFlags({.isSymlink = true, .isHidden = true}),
            itemFlag::symlink | itemFlag::invisible);
}

} // namespace tavrel
