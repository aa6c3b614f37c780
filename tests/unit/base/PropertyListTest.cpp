#include "base/PropertyList.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(PropertyList, BooleanTrueIsNotIntegerOne) {
  EXPECT_NE(PropertyList(true), PropertyList(1));
  EXPECT_EQ(PropertyList(true).integer(), std::nullopt);
  EXPECT_EQ(PropertyList(1).boolean(), std::nullopt);
}

TEST(PropertyList, ARealIsNoIntegerEvenWhenItIsWhole) {
  EXPECT_EQ(PropertyList(1.0).integer(), std::nullopt);
  EXPECT_EQ(PropertyList(1.0).real(), 1.0);
}

TEST(PropertyList, ACopyOfADictionaryIsTheVeryDictionary) {
  const PropertyList record(PropertyList::Dictionary{{"title", "A"}});
  const PropertyList copy = record;
  EXPECT_TRUE(copy.isSameObject(record));
  EXPECT_FALSE(copy.isSameObject(PropertyList(PropertyList::Dictionary{{"title", "A"}})));
  EXPECT_EQ(copy, PropertyList(PropertyList::Dictionary{{"title", "A"}}));
}

TEST(PropertyList, AMissingKeyAndAWrongKindAnswerNothing) {
  const PropertyList record(PropertyList::Dictionary{{"count", 3}});
  EXPECT_EQ(record.find("title"), nullptr);
  EXPECT_EQ(record.stringFor("count"), nullptr);
  EXPECT_EQ(record.arrayFor("count"), nullptr);
  EXPECT_EQ(PropertyList(3).find("title"), nullptr);
}

TEST(PropertyList, AValueNestedThreeHundredThousandDeepIsTakenApartWithoutTheStack) {
  PropertyList nested(PropertyList::Array{});
  for (int depth = 0; depth < 300'000; ++depth)
    nested = PropertyList(PropertyList::Array{nested});
  EXPECT_EQ(nested.kind(), PropertyList::Kind::array);
}

} // namespace
} // namespace tavrel
