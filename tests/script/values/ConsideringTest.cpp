#include "script/ScriptTest.h"

namespace tavrel::script {
namespace {

class ConsideringTest : public ScriptTest {
protected:
  std::string considering(const std::string& what, const std::string& comparison) {
    return result("considering " + what + "\n" + comparison + "\nend considering");
  }
  std::string ignoring(const std::string& what, const std::string& comparison) {
    return result("ignoring " + what + "\n" + comparison + "\nend ignoring");
  }
};

TEST_F(ConsideringTest, CaseCountsOnlyWhenConsidered) {
  EXPECT_EQ(result("\"ÄB\" = \"äb\""), "true");
  EXPECT_EQ(
      considering("case", "{\"a\" = \"A\", \"abc\" contains \"B\", \"abc\" starts with \"A\"}"),
      "{false, false, false}");
}

TEST_F(ConsideringTest, WhiteSpaceCountsUnlessIgnored) {
  EXPECT_EQ(result("\"a b\" = \"ab\""), "false");
  EXPECT_EQ(ignoring("white space", "\" a\tb \" = \"ab\""), "true");
}

TEST_F(ConsideringTest, HyphensCountUnlessIgnored) {
  EXPECT_EQ(result("\"a-b\" = \"ab\""), "false");
  EXPECT_EQ(ignoring("hyphens", "\"a-b\" = \"ab\""), "true");
}

TEST_F(ConsideringTest, PunctuationCountsUnlessIgnored) {
  EXPECT_EQ(result("\"What?\" = \"what\""), "false");
  EXPECT_EQ(ignoring("punctuation", "\"What?!\" = \"what\""), "true");
}

TEST_F(ConsideringTest, DiacriticalsCountUnlessIgnored) {
  EXPECT_EQ(result("\"é\" = \"e\""), "false");
  EXPECT_EQ(ignoring("diacriticals", "{\"Éä\" = \"ea\", \"café\" ends with \"FE\"}"),
            "{true, true}");
}

TEST_F(ConsideringTest, NumbersInTextsCountOnlyWhenConsidered) {
  EXPECT_EQ(result("\"a10\" > \"a9\""), "false");
  EXPECT_EQ(considering("numeric strings", "{\"a10\" > \"a9\", \"1.2.10\" > \"1.2.9\"}"),
            "{true, true}");
  EXPECT_EQ(considering("numeric strings", "{\"007\" = \"7\", \"1.0\" = \"1.0.0\"}"),
            "{true, false}");
}

TEST_F(ConsideringTest, SeveralCanBeNamed) {
  EXPECT_EQ(ignoring("white space, hyphens and punctuation", "\"a-b c.\" = \"abc\""), "true");
  EXPECT_EQ(result("considering case but ignoring white space\n\"a b\" = \"ab\"\nend considering"),
            "true");
  EXPECT_EQ(result("ignoring punctuation but considering case\n\"A.\" = \"a\"\nend ignoring"),
            "false");
}

TEST_F(ConsideringTest, TheInnerOneWinsAndTheOuterComesBack) {
  EXPECT_EQ(
      result("considering case\nset a to \"a\" = \"A\"\nignoring case\nset b to \"a\" = \"A\"\n"
             "end ignoring\nset c to \"a\" = \"A\"\nend considering\n{a, b, c, \"a\" = \"A\"}"),
      "{false, true, false, true}");
}

TEST_F(ConsideringTest, ItIsOverAfterAnErrorToo) {
  EXPECT_EQ(result("try\nconsidering case\nerror \"x\"\nend considering\nend try\n\"a\" = \"A\""),
            "true");
}

TEST_F(ConsideringTest, ItReachesIntoHandlers) {
  EXPECT_EQ(result("on same()\n\"a\" = \"A\"\nend same\nconsidering case\nsame()\nend considering"),
            "false");
}

TEST_F(ConsideringTest, ItReachesIntoLists) {
  EXPECT_EQ(considering("case", "{{\"a\"} = {\"A\"}, {\"a\", \"b\"} contains \"B\"}"),
            "{false, false}");
}

TEST_F(ConsideringTest, AReturnFromInsideEndsIt) {
  EXPECT_EQ(
      result("on f()\nconsidering case\nreturn 1\nend considering\nend f\nf()\n\"a\" = \"A\""),
      "true");
}

} // namespace
} // namespace tavrel::script
