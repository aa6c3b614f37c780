#include "base/PathString.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(PathString, TheLastComponentIgnoresTrailingSeparators) {
  EXPECT_EQ(lastPathComponent("/a/b.txt/"), "b.txt");
  EXPECT_EQ(lastPathComponent("/"), "/");
  EXPECT_EQ(lastPathComponent("//a//b//"), "b");
  EXPECT_EQ(lastPathComponent("/a/.hidden"), ".hidden");
  EXPECT_EQ(lastPathComponent(".txt"), ".txt");
  EXPECT_EQ(lastPathComponent("/Applications/Path Finder.app"), "Path Finder.app");
  EXPECT_EQ(lastPathComponent(""), "");
}

TEST(PathString, DeletingTheExtensionTakesTheLastOneOnly) {
  EXPECT_EQ(deletingPathExtension("/a/b.txt/"), "/a/b");
  EXPECT_EQ(deletingPathExtension("/a/x.tar.gz"), "/a/x.tar");
  EXPECT_EQ(deletingPathExtension("/a/b..c"), "/a/b.");
  EXPECT_EQ(deletingPathExtension("/Applications/Path Finder.app"), "/Applications/Path Finder");
  EXPECT_EQ(deletingPathExtension("/"), "/");
}

TEST(PathString, ANameThatOnlyBeginsWithAFullStopHasNoExtension) {
  EXPECT_EQ(deletingPathExtension("/a/.hidden"), "/a/.hidden");
  EXPECT_EQ(deletingPathExtension(".txt"), ".txt");
  EXPECT_EQ(pathExtension("/a.d/.hidden"), "");
  EXPECT_EQ(pathExtension("/a.d/plain"), "");
  EXPECT_EQ(pathExtension("/a/b.scpt"), "scpt");
}

TEST(PathString, TheFolderOfAPathIsWhatStandsBeforeItsLastComponent) {
  EXPECT_EQ(deletingLastPathComponent("/a/b"), "/a");
  EXPECT_EQ(deletingLastPathComponent("/a/b/"), "/a");
  EXPECT_EQ(deletingLastPathComponent("/a"), "/");
  EXPECT_EQ(deletingLastPathComponent("/"), "/");
  EXPECT_EQ(deletingLastPathComponent("a"), "");
}

TEST(PathString, AppendingPutsOneSeparatorBetween) {
  EXPECT_EQ(appendingPathComponent("/a", "b"), "/a/b");
  EXPECT_EQ(appendingPathComponent("/a/", "b"), "/a/b");
  EXPECT_EQ(appendingPathComponent("/", "b"), "/b");
  EXPECT_EQ(appendingPathComponent("", "b"), "b");
}

TEST(PathString, DotSegmentsAndSpareSeparatorsAreRemoved) {
  EXPECT_EQ(removingDotSegments("//a/./b//../c/"), "/a/c");
  EXPECT_EQ(removingDotSegments("/../a"), "/a");
  EXPECT_EQ(removingDotSegments("/"), "/");
  EXPECT_EQ(removingDotSegments("../a"), "../a");
  EXPECT_EQ(removingDotSegments("a/../.."), "..");
}

TEST(PathString, OnlyATildeOfOnesOwnIsExpanded) {
  EXPECT_EQ(expandingTilde("~/x", "/home/anna"), "/home/anna/x");
  EXPECT_EQ(expandingTilde("~", "/home/anna"), "/home/anna");
  EXPECT_EQ(expandingTilde("~bert/x", "/home/anna"), "~bert/x");
  EXPECT_EQ(expandingTilde("/a/~/x", "/home/anna"), "/a/~/x");
}

TEST(PathString, AParentSegmentIsAWholeComponent) {
  EXPECT_TRUE(hasParentSegment("/a/../b"));
  EXPECT_FALSE(hasParentSegment("/a/..b/c.."));
}

} // namespace
} // namespace tavrel
