#include "platform/linux/installation/InstalledComponents.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(InstalledComponents, AreKnownByTheirPathsAlone) {
  EXPECT_EQ(installedComponent("/Library/Contextual Menu Items/Tavrel.plugin", "/home/me"),
            InstalledComponent::systemPlugin);
  EXPECT_EQ(installedComponent("/home/me/Library/PreferencePanes/TavrelPref.prefPane", "/home/me"),
            InstalledComponent::userPane);
  for (const char* path : {"", "/", "/etc/passwd", "/Library",
                           "/home/you/Library/PreferencePanes/"
                           "TavrelPref.prefPane"})
    EXPECT_EQ(installedComponent(path, "/home/me"), std::nullopt) << path;
}

TEST(InstalledComponents, AreNamedBackAndForth) {
  for (const auto component : {InstalledComponent::systemPlugin, InstalledComponent::userPlugin,
                               InstalledComponent::systemPane, InstalledComponent::userPane})
    EXPECT_EQ(componentNamed(componentName(component)), component);
  EXPECT_EQ(componentNamed("everything"), std::nullopt);
}

} // namespace
} // namespace tavrel
