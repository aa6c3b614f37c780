#include "script/ScriptTest.h"

namespace tavrel::script {
namespace {

using ElementsTest = ScriptTest;

TEST_F(ElementsTest, ThereIsNoElementZero) {
  for (const char* source : {"item 0 of {1}", "character 0 of \"a\"", "word 0 of \"a\"",
                             "text item 0 of \"a\"", "items 0 thru 1 of {1}"})
    EXPECT_EQ(errorOf(source), errors::noSuchObject) << source;
}

TEST_F(ElementsTest, NegativeIndicesCountFromTheEnd) {
  EXPECT_EQ(result("{item -1 of {1, 2, 3}, item -3 of {1, 2, 3}}"), "{3, 1}");
  EXPECT_EQ(result("{character -1 of \"abc\", word -2 of \"a b c\"}"), "{\"c\", \"b\"}");
  EXPECT_EQ(result("items -2 thru -1 of {1, 2, 3}"), "{2, 3}");
  EXPECT_EQ(errorOf("item -4 of {1, 2, 3}"), errors::noSuchObject);
}

TEST_F(ElementsTest, ARangeMayBeToldBackwards) {
  EXPECT_EQ(result("items 3 thru 2 of {1, 2, 3}"), "{2, 3}");
  EXPECT_EQ(result("text 3 thru 2 of \"abc\""), "\"bc\"");
}

TEST_F(ElementsTest, ARangeBeyondTheEndIsAnError) {
  EXPECT_EQ(errorOf("items 2 thru 4 of {1, 2, 3}"), errors::noSuchObject);
  EXPECT_NE(errorOf("text 2 thru 4 of \"abc\""), 0);
  EXPECT_NE(errorOf("text 1 thru 1 of \"\""), 0);
}

TEST_F(ElementsTest, TheEmptyTextHasNoElements) {
  EXPECT_EQ(result("{characters of \"\", words of \"\", length of \"\"}"), "{{}, {}, 0}");
  EXPECT_EQ(errorOf("first character of \"\""), errors::noSuchObject);
  EXPECT_EQ(errorOf("last word of \"\""), errors::noSuchObject);
}

TEST_F(ElementsTest, TheEmptyListHasNoElements) {
  EXPECT_EQ(result("{items of {}, reverse of {}, count {}}"), "{{}, {}, 0}");
  for (const char* source : {"item 1 of {}", "last item of {}", "some item of {}",
                             "middle item of {}", "beginning of {}"})
    EXPECT_EQ(errorOf(source), errors::noSuchObject) << source;
}

TEST_F(ElementsTest, CharactersAreCodePoints) {
  EXPECT_EQ(result("{length of \"😀é\", character 2 of \"😀éa\"}"), "{2, \"é\"}");
  EXPECT_EQ(result("reverse of characters of \"é😀\""), "{\"😀\", \"é\"}");
}

TEST_F(ElementsTest, EveryKindOfLineEndSeparatesParagraphs) {
  EXPECT_EQ(result("paragraphs of (\"a\" & linefeed & return & return & linefeed & \"b\")"),
            "{\"a\", \"\", \"\", \"b\"}");
  EXPECT_EQ(result("paragraphs of (\"a\" & linefeed)"), "{\"a\", \"\"}");
}

TEST_F(ElementsTest, WordsLeaveSignsOut) {
  EXPECT_EQ(result("words of \"-- a, (b); c's 1.5 d.e\""),
            "{\"a\", \"b\", \"c's\", \"1.5\", \"d\", \"e\"}");
}

TEST_F(ElementsTest, IndicesCanBeExpressionsInParentheses) {
  EXPECT_EQ(result("set i to 1\nitem (i + 1) of {1, 2, 3}"), "2");
  EXPECT_EQ(result("set i to 2\nitem i of {1, 2, 3}"), "2");
  EXPECT_EQ(result("item \"2\" of {1, 2, 3}"), "error -1728: Can’t get item \"2\" of {1, 2, 3}.");
}

TEST_F(ElementsTest, OrdinalsMayBeDigits) {
  EXPECT_EQ(result("{1st item of {1, 2}, 2nd item of {1, 2}, 3rd word of \"a b c\"}"),
            "{1, 2, \"c\"}");
  EXPECT_EQ(errorOf("4th item of {1}"), errors::noSuchObject);
  EXPECT_EQ(errorOf("1 st item of {1}"), errors::syntax);
}

TEST_F(ElementsTest, ElementsCanBeReplacedInPlace) {
  EXPECT_EQ(result("set l to {1, {2, 3}}\nset item -1 of item 2 of l to \"x\"\nl"),
            "{1, {2, \"x\"}}");
  EXPECT_NE(errorOf("set l to {1}\nset item 2 of l to 1"), 0);
  EXPECT_NE(errorOf("set t to \"abc\"\nset character 1 of t to \"x\""), 0);
}

TEST_F(ElementsTest, ElementsOfAClassSkipTheOthers) {
  EXPECT_EQ(result("{second integer of {\"a\", 1, 2}, count texts of {1, \"a\"}}"), "{2, 1}");
  EXPECT_EQ(errorOf("integer 3 of {\"a\", 1, 2}"), errors::noSuchObject);
}

TEST_F(ElementsTest, ConditionsSeeEachElement) {
  EXPECT_EQ(result("every item of {1, \"a\", 3} whose class is integer"), "{1, 3}");
  EXPECT_EQ(result("last item of {4, 9, 5} whose it > 4"), "5");
  EXPECT_EQ(result("every item of {} whose it > 4"), "{}");
}

TEST_F(ElementsTest, NumbersHaveNoElements) {
  EXPECT_EQ(errorOf("item 1 of 5"), errors::noSuchObject);
  EXPECT_EQ(errorOf("characters of 5"), errors::noSuchObject);
}

} // namespace
} // namespace tavrel::script
