#include "base/LocalUrl.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(LocalUrl, AFileUrlOfThisMachineNamesItsPath) {
  for (const char* url : {"file:/a/b", "file:///a/b", "file://localhost/a/b", "FILE:///a/b"})
    EXPECT_EQ(localPathOfUrl(url), "/a/b") << url;
}

TEST(LocalUrl, AnotherMachineOrSchemeNamesNone) {
  for (const char* url : {"file://server/a", "http:///a", "/a", "file:a", "file://localhost",
                          "file:////a", "file://localhost//a", ""})
    EXPECT_EQ(localPathOfUrl(url), std::nullopt) << url;
}

TEST(LocalUrl, EscapesStandForAnyByte) {
  EXPECT_EQ(localPathOfUrl("file:///a%20b%E9%2fc"), "/a b\xE9/c");
  EXPECT_EQ(localPathOfUrl("file:///%41%5A1"), "/AZ1");
}

TEST(LocalUrl, WhatIsNoUrlOrHoldsANulNamesNone) {
  EXPECT_EQ(localPathOfUrl("file:///a b"), std::nullopt);
  EXPECT_EQ(localPathOfUrl("file:///a%2"), std::nullopt);
  EXPECT_EQ(localPathOfUrl("file:///a%00"), std::nullopt);
}

TEST(LocalUrl, QueryFragmentAndSlashesAtTheEndAreLeftOut) {
  EXPECT_EQ(localPathOfUrl("file:///a?b"), "/a");
  EXPECT_EQ(localPathOfUrl("file:///a#b"), "/a");
  EXPECT_EQ(localPathOfUrl("file:///a//"), "/a");
  EXPECT_EQ(localPathOfUrl("file:///"), "/");
}

} // namespace
} // namespace tavrel
