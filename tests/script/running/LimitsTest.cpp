#include "script/ScriptTest.h"

namespace tavrel::script {
namespace {

using LimitsTest = ScriptTest;

TEST_F(LimitsTest, EndlessRecursionIsAnErrorThatCanBeCaught) {
  EXPECT_EQ(errorOf("on f()\nf()\nend f\nf()"), errors::stackOverflow);
  EXPECT_EQ(result("on f()\nf()\nend f\ntry\nf()\non error number n\nn\nend try"), "-2706");
}

TEST_F(LimitsTest, ARunEndsWhenItsStepsAreUsedUp) {
  limits.steps = 10'000;
  EXPECT_EQ(errorOf("repeat\nend repeat"), errors::timedOut);
  EXPECT_EQ(errorOf("repeat\ntry\nrepeat\nend repeat\nend try\nend repeat"), errors::timedOut);
  EXPECT_EQ(result("set n to 0\nrepeat 100 times\nset n to n + 1\nend repeat\nn"), "100");
}

TEST_F(LimitsTest, AnApplicationThatAnswersTooLateIsCaughtLikeEveryOtherError) {
  EXPECT_EQ(result("try\nerror number -1712\non error number n\nn\nend try"), "-1712");
  EXPECT_EQ(result("try\nerror number -1712\non error number -1712\n\"late\"\nend try"),
            "\"late\"");
}

TEST_F(LimitsTest, ARunEndsWhenTheUserStopsIt) {
  host.stops = true;
  EXPECT_EQ(errorOf("repeat\nend repeat"), errors::userCanceled);
  EXPECT_EQ(errorOf("repeat\ntry\nrepeat\nend repeat\nend try\nend repeat"), errors::userCanceled);
}

TEST_F(LimitsTest, ATextThatOutgrowsTheMemoryIsAnError) {
  EXPECT_EQ(errorOf("set t to \"0123456789\"\nrepeat\nset t to t & t\nend repeat"),
            errors::outOfMemory);
}

TEST_F(LimitsTest, AListThatOutgrowsTheMemoryGivesItBackAfterwards) {
  EXPECT_EQ(errorOf("set l to {1, 2, 3, 4}\nrepeat\nset l to l & l\nend repeat"),
            errors::outOfMemory);
  EXPECT_EQ(result("set l to {}\nrepeat with i from 1 to 1000\nset end of l to i\nend repeat\n"
                   "count l"),
            "1000");
}

TEST_F(LimitsTest, AListThatHoldsAnotherTooOftenIsNoResultForTheDesktop) {
  const std::string many = "set l to {1}\nrepeat 40 times\nset l to {l, l}\nend repeat\n";
  const RunResult run = outcome(many + "l");
  EXPECT_FALSE(run.error);
  EXPECT_TRUE(std::holds_alternative<std::monostate>(run.value.value));
  EXPECT_EQ(errorOf(many + "display dialog l"), errors::outOfMemory);
  EXPECT_TRUE(host.asked.empty());
}

TEST_F(LimitsTest, ThePartsOfATextCountAsMemory) {
  limits.heap = std::size_t{16} << 20U;
  const std::string text = "set t to \"0 2 4 6 8 \"\nrepeat 17 times\nset t to t & t\nend repeat\n";
  EXPECT_EQ(result(text + "count t"), "1310720");
  for (const char* each : {"characters of t", "words of t", "count words of t"})
    EXPECT_EQ(errorOf(text + each), errors::outOfMemory) << each;
  EXPECT_EQ(result(text + "try\ncount words of t\nend try\nlength of t"), "1310720");
  limits.heap = std::size_t{6} << 20U;
  EXPECT_EQ(errorOf(text + "t = \"a\" & t"), errors::outOfMemory);
}

TEST_F(LimitsTest, ManySmallTextsCountAsMemory) {
  limits.heap = std::size_t{1} << 20U;
  EXPECT_EQ(errorOf("set l to {}\nrepeat 20000 times\nset end of l to \"a\" & \"\"\nend repeat"),
            errors::outOfMemory);
}

// Each would take minutes if what is there already were copied for each piece.
TEST_F(LimitsTest, ManyPiecesAreAppendedOneByOne) {
  const std::string times = "\nrepeat with i from 1 to 300000\n";
  EXPECT_EQ(
      result("set t to \"\"" + times + "set t to t & \"a\" & i mod 10\nend repeat\nlength of t"),
      "600000");
  EXPECT_EQ(result("global t\non add(x)\nset t to t & x & linefeed\nend add\nset t to \"\"" +
                   times + "add(\"a\")\nend repeat\nlength of t"),
            "600000");
  EXPECT_EQ(result("set l to {}" + times + "set l to l & i\nend repeat\ncount l"), "300000");
  EXPECT_EQ(result("set t to \"é\"" + times +
                   "set t to t & \"é\"\nif length of t is i then error\n"
                   "end repeat\nlength of t"),
            "300001");
  EXPECT_EQ(
      result("set t to \"é\"\nrepeat 17 times\nset t to t & t\nend repeat\nset n to 0\n"
             "repeat with i from 1 to length of t\nif character i of t is \"é\" then set n to "
             "n + 1\nend repeat\nn"),
      "131072");
}

TEST_F(LimitsTest, AScriptOfManyNamesIsReadAtOnce) {
  std::string source;
  for (int i = 0; i < 40'000; ++i)
    source += "set v" + std::to_string(i) + " to 1\n";
  EXPECT_EQ(result(source + "v39999"), "1");
}

TEST_F(LimitsTest, AnErrorShowsOnlyTheBeginningOfALongText) {
  const std::string text = "set t to \"é123456789\"\nrepeat 12 times\nset t to t & t\nend repeat\n";
  const RunResult run = outcome(text + "character 50000 of t");
  ASSERT_TRUE(run.error);
  EXPECT_LT(run.error->message.size(), 5000U);
  EXPECT_NE(run.error->message.find("…\""), std::string::npos);
}

TEST_F(LimitsTest, AListInsideItselfCanBeShownAndCompared) {
  const std::string circle = "set l to {1}\nset end of l to l\n";
  EXPECT_EQ(errorOf(circle + "l"), 0);
  EXPECT_EQ(result(circle + "l = l"), "true");
  EXPECT_EQ(errorOf(circle + "set m to {1}\nset end of m to m\nl = m"), errors::stackOverflow);
  EXPECT_EQ(errorOf(circle + "l as text"), errors::stackOverflow);
  EXPECT_EQ(errorOf(circle + "copy l to m"), errors::stackOverflow);
}

TEST_F(LimitsTest, ARecordInsideItselfCanBeShown) {
  const std::string circle = "set r to {a:1}\nset a of r to r\n";
  EXPECT_EQ(errorOf(circle + "r"), 0);
  EXPECT_EQ(result(circle + "r = r"), "true");
  EXPECT_EQ(errorOf(circle + "copy r to s"), errors::stackOverflow);
}

TEST_F(LimitsTest, AScriptThatIsItsOwnParentUnderstandsNothingMore) {
  EXPECT_EQ(errorOf("script s\nproperty parent : me\nend script\nf() of s"), errors::notUnderstood);
}

} // namespace
} // namespace tavrel::script
