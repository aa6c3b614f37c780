#include "platform/linux/transfers/SafeRemoval.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

class SafeRemoval : public ::testing::Test {
protected:
  SafeRemoval() {
    fs::create_directories(folder.path("base/lib/tavrel/Tavrel.plugin/Contents/deep"));
    folder.write("base/lib/tavrel/Tavrel.plugin/Contents/deep/file", "x");
    fs::create_directories(folder.path("elsewhere/inside"));
    folder.write("elsewhere/inside/kept", "x");
  }
  std::string removed(const std::string& relative) {
    return removeBelow(folder.path("base"), relative);
  }
  bool isThere(const std::string& name) { return fs::exists(folder.path(name)); }

  TemporaryFolder folder;
};

TEST_F(SafeRemoval, AFolderGoesWithEverythingInIt) {
  EXPECT_EQ(removed("lib/tavrel/Tavrel.plugin"), "");
  EXPECT_FALSE(isThere("base/lib/tavrel/Tavrel.plugin"));
  EXPECT_TRUE(isThere("base/lib/tavrel"));
}

TEST_F(SafeRemoval, WhatIsNotThereIsNoFailure) {
  EXPECT_EQ(removed("lib/tavrel/none"), "");
  EXPECT_EQ(removed("none/none"), "");
}

TEST_F(SafeRemoval, ALinkAtTheEndGoesAlone) {
  fs::remove_all(folder.path("base/lib/tavrel/Tavrel.plugin"));
  fs::create_directory_symlink(folder.path("elsewhere"),
                               folder.path("base/lib/tavrel/Tavrel.plugin"));
  EXPECT_EQ(removed("lib/tavrel/Tavrel.plugin"), "");
  EXPECT_FALSE(fs::is_symlink(folder.path("base/lib/tavrel/Tavrel.plugin")));
  EXPECT_TRUE(isThere("elsewhere/inside/kept"));
}

TEST_F(SafeRemoval, ALinkInsideGoesAlone) {
  fs::create_directory_symlink(folder.path("elsewhere"),
                               folder.path("base/lib/tavrel/Tavrel.plugin/Contents/out"));
  EXPECT_EQ(removed("lib/tavrel/Tavrel.plugin"), "");
  EXPECT_TRUE(isThere("elsewhere/inside/kept"));
}

TEST_F(SafeRemoval, ALinkOnTheWayIsRefused) {
  fs::create_directory_symlink(folder.path("elsewhere"), folder.path("base/out"));
  EXPECT_EQ(removed("out/inside"), "leads through a link");
  EXPECT_TRUE(isThere("elsewhere/inside/kept"));
}

TEST_F(SafeRemoval, PathsThatAreNoPlacesAreRefused) {
  for (const char* path : {"", ".", "..", "../elsewhere", "lib/../../elsewhere", "/", "lib//tavrel",
                           "lib/tavrel/", "./lib"})
    EXPECT_EQ(removed(path), "is no place of ours") << path;
  EXPECT_EQ(removed(std::string("lib\0x", 5)), "is no place of ours");
  EXPECT_TRUE(isThere("base/lib/tavrel/Tavrel.plugin/Contents/deep/file"));
  EXPECT_TRUE(isThere("elsewhere/inside/kept"));
}

TEST_F(SafeRemoval, FoldersOfAnyDepthEndInOrder) {
  std::string deep = "base/deep";
  for (int level = 0; level < 300; ++level)
    deep.append("/d");
  fs::create_directories(folder.path(deep));
  EXPECT_EQ(removed("deep"), "");
  EXPECT_FALSE(isThere("base/deep"));
}

} // namespace
} // namespace tavrel
