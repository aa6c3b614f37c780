#include "base/Description.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(Description, AStringStandsForItself) {
  EXPECT_EQ(descriptionOf("say \"hello\""), "say \"hello\"");
}

TEST(Description, NumbersAndBooleansAreTheirDigits) {
  EXPECT_EQ(descriptionOf(7), "7");
  EXPECT_EQ(descriptionOf(true), "1");
  EXPECT_EQ(descriptionOf(PropertyList::Array{0.5}), "(\n    \"0.5\"\n)");
}

TEST(Description, AnErrorIsReadable) {
  const PropertyList error = PropertyList::Dictionary{
      {"NSAppleScriptErrorMessage", "Can\u2019t get \"x\".\nBye \\"},
      {"NSAppleScriptErrorNumber", -1728},
      {"Range", PropertyList::Dictionary{{"length", 3}, {"location", 0}}},
  };
  EXPECT_EQ(descriptionOf(error), "{\n"
                                  "    NSAppleScriptErrorMessage = "
                                  "\"Can\u2019t get \\\"x\\\".\\nBye \\\\\";\n"
                                  "    NSAppleScriptErrorNumber = \"-1728\";\n"
                                  "    Range = {\n"
                                  "        length = 3;\n"
                                  "        location = 0;\n"
                                  "    };\n"
                                  "}");
}

TEST(Description, ListsStandOverSeveralLines) {
  EXPECT_EQ(descriptionOf(PropertyList::Array{"a", "b c", Bytes{0x0A, 0xFF}, ""}),
            "(\n    a,\n    \"b c\",\n    <0aff>,\n    \"\"\n)");
  EXPECT_EQ(descriptionOf(PropertyList::Array{}), "(\n)");
  EXPECT_EQ(descriptionOf(PropertyList::Dictionary{}), "{\n}");
}

TEST(Description, ADateIsItsSeconds) {
  EXPECT_EQ(descriptionOf(PropertyList::Array{PropertyList::Date{12}}), "(\n    12\n)");
}

TEST(Description, AVeryDeepValueIsCut) {
  PropertyList value = "core";
  for (int i = 0; i < 200'000; ++i)
    value = PropertyList::Array{std::move(value)};
  const std::string text = descriptionOf(value);
  EXPECT_NE(text.find("..."), std::string::npos);
  EXPECT_EQ(text.find("core"), std::string::npos);
}

} // namespace
} // namespace tavrel
