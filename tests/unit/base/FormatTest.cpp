#include "base/Format.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(Format, EveryPlaceIsFilledWithTheSameText) {
  EXPECT_EQ(filled("%@ and %@", "a"), "a and a");
  EXPECT_EQ(filled("nothing", "a"), "nothing");
}

TEST(Format, PlacesAreFilledInOrder) {
  EXPECT_EQ(filledInOrder("tell \"%@\" to reveal \"%@\"", {"Finder", "/a"}),
            "tell \"Finder\" to reveal \"/a\"");
  EXPECT_EQ(filledInOrder("%@-%@", {"a"}), "a-");
}

TEST(Format, AFilledTextIsNotFilledAgain) {
  EXPECT_EQ(filled("[%@]", "%@"), "[%@]");
  EXPECT_EQ(filledInOrder("%@ %@", {"%@", "b"}), "%@ b");
}

} // namespace
} // namespace tavrel
