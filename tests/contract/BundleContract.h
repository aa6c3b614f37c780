#pragma once

#include "platform/Bundle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {

/// Every desktop's bundle. `World` has `bundle()`, which is asked once everything is set up,
/// `setText(key, text)` for the person's language, `setInformation(key, text)`, and
/// `addResource(name, type)`.
template <class World> class BundleContract : public ::testing::Test {
protected:
  Bundle& bundle() { return world.bundle(); }
  World world;
};

TYPED_TEST_SUITE_P(BundleContract);

TYPED_TEST_P(BundleContract, AKeyHasItsText) {
  this->world.setText("Recent Items", "Benutzte Objekte");
  EXPECT_EQ(this->bundle().localizedString("Recent Items"), "Benutzte Objekte");
}

TYPED_TEST_P(BundleContract, AKeyWithoutTextIsItsOwnText) {
  this->world.setText("Recent Items", "Benutzte Objekte");
  EXPECT_EQ(this->bundle().localizedString("recent items"), "recent items");
  EXPECT_EQ(this->bundle().localizedString(""), "");
}

TYPED_TEST_P(BundleContract, InformationIsFoundByItsKey) {
  this->world.setInformation("CFBundleName", "Tavrel");
  EXPECT_EQ(this->bundle().informationValue("CFBundleName"), "Tavrel");
  EXPECT_EQ(this->bundle().informationValue("CFBundleIconFile"), std::nullopt);
}

TYPED_TEST_P(BundleContract, AResourceHasAnAbsolutePath) {
  this->world.addResource("Pop", "wav");
  const auto path = this->bundle().resourcePath("Pop", "wav");
  ASSERT_TRUE(path);
  EXPECT_THAT(*path, ::testing::StartsWith("/"));
  EXPECT_THAT(*path, ::testing::EndsWith("/Pop.wav"));
}

TYPED_TEST_P(BundleContract, AMissingResourceHasNoPath) {
  this->world.addResource("Pop", "wav");
  EXPECT_EQ(this->bundle().resourcePath("Pop", "scpt"), std::nullopt);
  EXPECT_EQ(this->bundle().resourcePath("pop", "wav"), std::nullopt);
  EXPECT_EQ(this->bundle().resourcePath("", ""), std::nullopt);
}

REGISTER_TYPED_TEST_SUITE_P(BundleContract, AKeyHasItsText, AKeyWithoutTextIsItsOwnText,
                            InformationIsFoundByItsKey, AResourceHasAnAbsolutePath,
                            AMissingResourceHasNoPath);

} // namespace tavrel
