#include "platform/common/ScriptSource.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(ScriptSource, TextsStandInThePlacesOfTheForm) {
  EXPECT_EQ(sourceText({"tell \"%@\" to reveal \"%@\"", {"Finder", "/a b"}}),
            "tell \"Finder\" to reveal \"/a b\"");
  EXPECT_EQ(sourceText({"activate", {}}), "activate");
}

TEST(ScriptSource, ATextEndsNoLiteral) {
  EXPECT_EQ(sourceText({"say \"%@\"", {"a\\\" & (do shell script \"x\")"}}),
            "say \"a\\\\\\\" & (do shell script \\\"x\\\")\"");
}

TEST(ScriptSource, ATextThatLooksLikeAPlaceStaysAsItIs) {
  EXPECT_EQ(sourceText({"\"%@\" \"%@\"", {"%@", "b\nc"}}), "\"%@\" \"b\nc\"");
}

} // namespace
} // namespace tavrel
