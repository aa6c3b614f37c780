#include "script/ScriptTest.h"

namespace tavrel::script {
namespace {

using NumbersTest = ScriptTest;

TEST_F(NumbersTest, AWholeNumberThatOutgrows64BitsIsReal) {
  EXPECT_EQ(result("9223372036854775807"), "9223372036854775807");
  EXPECT_EQ(result("9223372036854775808"), "9.223372036854776E+18");
  EXPECT_EQ(result("9223372036854775807 + 1"), "9.223372036854776E+18");
  EXPECT_EQ(result("-9223372036854775807 - 2"), "-9.223372036854776E+18");
  EXPECT_EQ(result("9223372036854775807 * 2"), "1.8446744073709552E+19");
}

TEST_F(NumbersTest, TheSmallestWholeNumberCanBeNegated) {
  EXPECT_EQ(result("set n to -9223372036854775807 - 1\n-n"), "9.223372036854776E+18");
  EXPECT_EQ(result("set n to -9223372036854775807 - 1\nn mod -1"), "0");
}

TEST_F(NumbersTest, TheSmallestWholeNumberCanBeDividedByMinusOne) {
  EXPECT_EQ(errorOf("set n to -9223372036854775807 - 1\nn div -1"), 0);
}

TEST_F(NumbersTest, ALiteralBeyondAllRealsIsAnError) {
  EXPECT_EQ(errorOf("1.0E+999"), errors::syntax);
  EXPECT_EQ(errorOf("10 ^ 999"), errors::numberTooLarge);
  EXPECT_EQ(errorOf("1.0E+308 * 10"), errors::numberTooLarge);
}

TEST_F(NumbersTest, ManyDigitsAreAReal) {
  EXPECT_EQ(result("100000000000000000000"), "1.0E+20");
  EXPECT_EQ(result("0.000000000000000000001"), "1.0E-21");
}

TEST_F(NumbersTest, NothingIsDividedByZero) {
  for (const char* source : {"1 / 0", "1 div 0", "1 mod 0", "1.5 / 0.0", "0 / 0", "1 / \"0\""})
    EXPECT_EQ(errorOf(source), errors::dividedByZero) << source;
}

TEST_F(NumbersTest, ARealTooLargeForAWholeNumberStaysOne) {
  EXPECT_EQ(errorOf("1.0E+30 as integer"), errors::cannotCoerce);
  EXPECT_EQ(errorOf("item (1.0E+30) of {1}"), errors::cannotCoerce);
  EXPECT_EQ(errorOf("round 1.0E+30"), errors::cannotCoerce);
  EXPECT_EQ(result("1.0E+30 div 1"), "1.0E+30");
}

TEST_F(NumbersTest, HalvesAreRoundedToEven) {
  EXPECT_EQ(result("{0.5 as integer, 1.5 as integer, 2.5 as integer, -0.5 as integer}"),
            "{0, 2, 2, 0}");
}

TEST_F(NumbersTest, SignsCanFollowEachOther) {
  EXPECT_EQ(result("3 - -2"), "5");
  EXPECT_EQ(result("- (-2)"), "2");
  EXPECT_EQ(result("+2"), "2");
}

TEST_F(NumbersTest, WholeQuotientsGoTowardsZero) {
  EXPECT_EQ(result("{7 div 2, -7 div 2, 7 div -2, -7 div -2}"), "{3, -3, -3, 3}");
  EXPECT_EQ(result("{7 mod 2, -7 mod 2, 7 mod -2, -7 mod -2}"), "{1, -1, 1, -1}");
}

TEST_F(NumbersTest, TextsThatAreNumbersCount) {
  EXPECT_EQ(result("\" 12 \" + \"+3\""), "15");
  EXPECT_EQ(result("\"1e3\" as number"), "1000.0");
  for (const char* text : {"", " ", "-", ".", "1 2", "0x10", "inf", "nan", "1,5", "--1"})
    EXPECT_EQ(errorOf(std::string("\"").append(text).append("\" as number")), errors::cannotCoerce)
        << text;
}

TEST_F(NumbersTest, RandomNumbersStayWithinTheirBounds) {
  EXPECT_EQ(result("repeat 200 times\nset n to random number from 2 to 4\n"
                   "if n < 2 or n > 4 then error \"out\"\nend repeat\nclass of n"),
            "integer");
  EXPECT_EQ(result("set n to random number from 4 to 2\nn ≥ 2 and n ≤ 4"), "true");
  EXPECT_EQ(result("set n to random number\nn ≥ 0 and n ≤ 1"), "true");
}

TEST_F(NumbersTest, ALoopCannotCountByNothing) {
  EXPECT_EQ(errorOf("repeat with i from 1 to 2 by 0\nend repeat"), errors::badIndex);
}

TEST_F(NumbersTest, ALoopToTheLargestNumberEnds) {
  EXPECT_EQ(result("set n to 0\nrepeat with i from 9223372036854775806 to 9223372036854775807\n"
                   "set n to n + 1\nif n > 5 then exit repeat\nend repeat\nn"),
            "2");
}

} // namespace
} // namespace tavrel::script
