#include "support/CoreTest.h"

#include <limits>

namespace tavrel {
namespace {

using PreferenceStore = CoreTest;

TEST_F(PreferenceStore, AnIntegerOneIsNoBoolean) {
  set("key", 1);
  EXPECT_FALSE(TVR_BoolForKey("key", false));
  EXPECT_TRUE(TVR_BoolForKey("key", true));
}

TEST_F(PreferenceStore, AStoredBooleanWinsOverTheDefault) {
  set("off", false);
  set("on", true);
  EXPECT_FALSE(TVR_BoolForKey("off", true));
  EXPECT_TRUE(TVR_BoolForKey("on", false));
}

TEST_F(PreferenceStore, AStringIsNoNumber) {
  set("key", "5");
  EXPECT_EQ(TVR_IntForKey("key", 7), 7);
  EXPECT_EQ(TVR_FloatForKey("key"), 0.0F);
}

TEST_F(PreferenceStore, ABooleanIsNoNumber) {
  set("key", true);
  EXPECT_EQ(TVR_IntForKey("key", 7), 7);
  EXPECT_EQ(TVR_DoubleForKey("key"), 0.0);
}

TEST_F(PreferenceStore, NumbersOfEitherKindConvert) {
  set("real", 2.9);
  set("integer", 5000000000);
  set("wide", 0.8);
  EXPECT_EQ(TVR_IntForKey("real", 0), 2);
  EXPECT_EQ(TVR_IntForKey("integer", 0), 705032704);
  EXPECT_EQ(TVR_FloatForKey("wide"), 0.8F);
  EXPECT_EQ(TVR_DoubleForKey("integer"), 5e9);
}

TEST_F(PreferenceStore, ANumberBeyondTheLargestFloatIsAnInfinity) {
  set("key", 1e300);
  EXPECT_EQ(TVR_FloatForKey("key"), std::numeric_limits<float>::infinity());
  EXPECT_EQ(TVR_DoubleForKey("key"), 1e300);
}

TEST_F(PreferenceStore, AMissingKeyYieldsZeroOrNothing) {
  EXPECT_EQ(TVR_FloatForKey(TVR_LongPressInterval), 0.0F);
  EXPECT_EQ(TVR_DoubleForKey("key"), 0.0);
  EXPECT_EQ(TVR_StringForKey("key"), std::nullopt);
  EXPECT_EQ(TVR_ArrayForKey("key"), std::nullopt);
  EXPECT_EQ(TVR_IntForKey("key", -3), -3);
}

TEST_F(PreferenceStore, ANumberIsNoString) {
  set("key", 5);
  EXPECT_EQ(TVR_StringForKey("key"), std::nullopt);
  set("text", "words");
  EXPECT_EQ(TVR_StringForKey("text"), std::nullopt)
      << "reads come from the copy until synchronised";
}

TEST_F(PreferenceStore, AStoredStringIsAnswered) {
  set("key", "words");
  EXPECT_EQ(TVR_StringForKey("key"), "words");
}

TEST_F(PreferenceStore, OnlyAnArrayIsAnArray) {
  set("text", "words");
  set("dictionary", PropertyList::Dictionary{});
  set("array", PropertyList::Array{"a", 1});
  EXPECT_EQ(TVR_ArrayForKey("text"), std::nullopt);
  EXPECT_EQ(TVR_ArrayForKey("dictionary"), std::nullopt);
  EXPECT_EQ(TVR_ArrayForKey("array"), (PropertyList::Array{"a", 1}));
}

TEST_F(PreferenceStore, ATreeThatIsADictionaryIsNoTree) {
  set(TVR_MenuTree, PropertyList::Dictionary{});
  EXPECT_EQ(copyMenuRootArray(), std::nullopt);
}

TEST_F(PreferenceStore, TheTreeItselfIsAnswered) {
  const PropertyList tree(PropertyList::Array{record("url", "A")});
  set(TVR_MenuTree, tree);
  ASSERT_TRUE(copyMenuRootArray());
  EXPECT_TRUE(copyMenuRootArray()->isSameObject(tree));
  EXPECT_EQ(TVR_ArrayForKey(TVR_MenuTree), *tree.array());
}

TEST_F(PreferenceStore, StoringDoesNotSynchronise) {
  TVR_SetObjectForKey(3.5, "TVR_LastUpdateCheck");
  EXPECT_EQ(TVR_DoubleForKey("TVR_LastUpdateCheck"), 3.5);
  EXPECT_TRUE(desktop.preferences.control.synchronized.empty());
}

} // namespace
} // namespace tavrel
