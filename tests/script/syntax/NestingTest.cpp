#include "script/ScriptTest.h"
#include "script/syntax/SyntaxTree.h"

#include <type_traits>

namespace tavrel::script {
namespace {

/// Sources that nest deep or chain long: they end in an error, not in a crash.
class NestingTest : public ScriptTest {
protected:
  static std::string repeated(const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i)
      all += text;
    return all;
  }
  static std::string nested(const std::string& open, const std::string& close, int depth) {
    return repeated(open, depth) + "1" + repeated(close, depth);
  }
};

TEST_F(NestingTest, ModerateNestingIsFine) {
  EXPECT_EQ(result(nested("(", ")", 20)), "1");
  EXPECT_EQ(errorOf(nested("{", "}", 20)), 0);
}

TEST_F(NestingTest, DeepNestingIsAnErrorAndNoCrash) {
  const int deep = 20'000;
  EXPECT_EQ(errorOf(nested("(", ")", deep)), errors::stackOverflow);
  EXPECT_EQ(errorOf(nested("{", "}", deep)), errors::stackOverflow);
  EXPECT_EQ(errorOf(nested("{a:", "}", deep)), errors::stackOverflow);
  EXPECT_EQ(errorOf(repeated("not ", deep) + "true"), errors::stackOverflow);
  EXPECT_EQ(errorOf(repeated("- ", deep) + "1"), errors::stackOverflow);
  EXPECT_EQ(errorOf(repeated("f(", deep)), errors::stackOverflow);
  EXPECT_EQ(errorOf(repeated("item 1 of ", deep) + "{}"), errors::stackOverflow);
  EXPECT_EQ(errorOf(repeated("2 ^ ", deep) + "1"), errors::stackOverflow);
  EXPECT_EQ(errorOf(repeated("get ", deep) + "1"), errors::stackOverflow);
}

TEST_F(NestingTest, DeepBlocksAreAnErrorAndNoCrash) {
  const int deep = 20'000;
  for (const char* each : {"repeat\n", "try\n", "if true then\n", "tell me\n", "script\n",
                           "ignoring case\n", "on f()\n", "ignoring case but "})
    EXPECT_EQ(errorOf(repeated(each, deep)), errors::stackOverflow) << each;
}

TEST_F(NestingTest, AChainOfConsideringAndIgnoringIsBounded) {
  const auto chain = [](int links) {
    return repeated("ignoring case but considering white space but ", links) +
           "ignoring hyphens\n1\nend ignoring";
  };
  EXPECT_EQ(result(chain(20)), "1");
  EXPECT_EQ(result(chain(90)), "1");
  EXPECT_EQ(errorOf(chain(deepestNesting / 2)), errors::stackOverflow);
  EXPECT_EQ(errorOf(chain(20'000)), errors::stackOverflow);
}

TEST_F(NestingTest, BlocksOfConsideringInsideOneAnotherAreBounded) {
  const auto blocks = [](int count) {
    return repeated("considering case\n", count) + "1\n" + repeated("end considering\n", count);
  };
  EXPECT_EQ(result(blocks(20)), "1");
  EXPECT_EQ(errorOf(blocks(deepestNesting)), errors::stackOverflow);
}

// Each condition is a tree of 900 levels: a parser that copies operands never gets to the end.
TEST_F(NestingTest, LongConditionsInsideOneAnotherAreRead) {
  static_assert(!std::is_copy_constructible_v<Node>);
  const std::string condition = "if " + repeated("1 + ", 899) + "1 = 900 then\n";
  EXPECT_EQ(result(repeated(condition, 50) + "1\n" + repeated("end if\n", 50)), "1");
}

TEST_F(NestingTest, LongChainsAreAnErrorAndNoCrash) {
  EXPECT_EQ(result(repeated("1 + ", 999) + "1"), "1000");
  EXPECT_EQ(errorOf(repeated("1 + ", 1000) + "1"), errors::stackOverflow);
  EXPECT_EQ(errorOf(repeated("1 + ", 20'000) + "1"), errors::stackOverflow);
  EXPECT_EQ(errorOf("x" + repeated("'s y", 20'000)), errors::stackOverflow);
  EXPECT_EQ(errorOf("1" + repeated(" as text", 20'000)), errors::stackOverflow);
}

} // namespace
} // namespace tavrel::script
