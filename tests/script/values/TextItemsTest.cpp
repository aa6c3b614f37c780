#include "script/ScriptTest.h"

namespace tavrel::script {
namespace {

class TextItemsTest : public ScriptTest {
protected:
  std::string split(const std::string& delimiters, const std::string& text) {
    return result("set AppleScript's text item delimiters to " + delimiters + "\ntext items of \"" +
                  text + "\"");
  }
};

TEST_F(TextItemsTest, WithoutDelimitersEveryCharacterIsAnItem) {
  EXPECT_EQ(split("\"\"", "ab"), "{\"a\", \"b\"}");
  EXPECT_EQ(split("{}", "ab"), "{\"a\", \"b\"}");
  EXPECT_EQ(split("{\"\"}", "ab"), "{\"a\", \"b\"}");
}

TEST_F(TextItemsTest, DelimitersAtTheEndsMakeEmptyItems) {
  EXPECT_EQ(split("\",\"", ",a,"), "{\"\", \"a\", \"\"}");
  EXPECT_EQ(split("\",\"", "a"), "{\"a\"}");
}

TEST_F(TextItemsTest, AnyOfSeveralDelimitersSeparates) {
  EXPECT_EQ(split("{\", \", \";\", \",\"}", "a, b;c,d"), "{\"a\", \"b\", \"c\", \"d\"}");
}

TEST_F(TextItemsTest, TheLongestDelimiterCounts) {
  EXPECT_EQ(split("{\"a\", \"ab\"}", "xaby"), "{\"x\", \"y\"}");
}

TEST_F(TextItemsTest, DelimitersMindConsidering) {
  EXPECT_EQ(split("\"X\"", "axb"), "{\"a\", \"b\"}");
  EXPECT_EQ(result("set text item delimiters to \"X\"\nconsidering case\ntext items of \"axb\"\n"
                   "end considering"),
            "{\"axb\"}");
}

TEST_F(TextItemsTest, NumbersCanDelimit) {
  EXPECT_EQ(split("0", "1020"), "{\"1\", \"2\", \"\"}");
}

TEST_F(TextItemsTest, TheFirstDelimiterJoins) {
  EXPECT_EQ(result("set text item delimiters to {\"+\", \"-\"}\n{1, 2, 3} as text"), "\"1+2+3\"");
  EXPECT_EQ(result("set text item delimiters to {}\n{1, 2} as text"), "\"12\"");
}

TEST_F(TextItemsTest, InnerListsAreJoinedTheSameWay) {
  EXPECT_EQ(result("set text item delimiters to \"-\"\n{1, {2, 3}} as text"), "\"1-2-3\"");
}

TEST_F(TextItemsTest, DelimitersBelongToOneRun) {
  (void)result("set text item delimiters to \"-\"");
  EXPECT_EQ(result("{1, 2} as text"), "\"12\"");
}

TEST_F(TextItemsTest, ARecordCannotDelimit) {
  EXPECT_EQ(errorOf("set text item delimiters to {a:1}\ntext items of \"a\""),
            errors::cannotCoerce);
}

TEST_F(TextItemsTest, ARangeKeepsWhatStandsBetween) {
  EXPECT_EQ(result("set text item delimiters to \"--\"\ntext 1 thru text item 2 of \"a--b--c\""),
            "\"a--b\"");
}

TEST_F(TextItemsTest, ADelimiterThatHoldsItselfIsAnError) {
  EXPECT_NE(errorOf("set l to {}\nset end of l to l\nset text item delimiters to {l}\n"
                    "text items of \"a\""),
            0);
}

} // namespace
} // namespace tavrel::script
