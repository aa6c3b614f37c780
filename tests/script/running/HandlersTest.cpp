#include "script/ScriptTest.h"

namespace tavrel::script {
namespace {

using HandlersTest = ScriptTest;

TEST_F(HandlersTest, HandlersMayStandBehindTheirCalls) {
  EXPECT_EQ(result("f()\non f()\n5\nend f"), "5");
}

TEST_F(HandlersTest, HandlersCallEachOther) {
  EXPECT_EQ(result("on f(x)\ng(x) + 1\nend f\non g(x)\nx * 2\nend g\nf(g(2))"), "9");
}

TEST_F(HandlersTest, ParametersAreTheHandlersOwn) {
  EXPECT_EQ(result("on f(x)\nset x to x + 1\nend f\nset y to 1\nf(y)\ny"), "1");
  EXPECT_EQ(result("property x : 1\non f(x)\nset x to 2\nend f\nf(5)\nx"), "1");
}

TEST_F(HandlersTest, ListsAreSharedWithTheCaller) {
  EXPECT_EQ(result("on f(l)\nset end of l to 9\nend f\nset m to {1}\nf(m)\nm"), "{1, 9}");
}

TEST_F(HandlersTest, ManyParametersAndVariablesAreFine) {
  EXPECT_EQ(result("on f(a, b, c, d, e, g, h, i)\nset j to a + b + c + d\nset k to e + g + h + i\n"
                   "j * k\nend f\nf(1, 2, 3, 4, 5, 6, 7, 8)"),
            "260");
}

TEST_F(HandlersTest, TheNumberOfParametersMustFit) {
  const std::string handler = "on f(x)\nx\nend f\n";
  EXPECT_EQ(errorOf(handler + "f()"), errors::wrongArguments);
  EXPECT_EQ(errorOf(handler + "f(1, 2)"), errors::wrongArguments);
}

TEST_F(HandlersTest, LabelsMayComeInAnyOrder) {
  const std::string handler = "on f of x at y given z:w\n{x, y, w}\nend f\n";
  EXPECT_EQ(result(handler + "f of 1 at 2 given z:3"), "{1, 2, 3}");
  EXPECT_EQ(result(handler + "f of 1 given z:3 at 2"), "{1, 2, 3}");
}

TEST_F(HandlersTest, LabelledArgumentsAreWholeExpressions) {
  EXPECT_EQ(result("on f for x from y\n{x, y}\nend f\nf for 1 + 1 from 2 * 3"), "{2, 6}");
  EXPECT_EQ(result("on f about x\nx\nend f\n(f about 1) + (f about 2)"), "3");
}

TEST_F(HandlersTest, PrepositionsOfTwoWordsAreLabels) {
  EXPECT_EQ(result("on f instead of x\nx\nend f\nf instead of 5"), "5");
  EXPECT_EQ(result("on f given x:a\na\nend f\nf given x:5"), "5");
}

TEST_F(HandlersTest, AMissingLabelIsAnErrorAndAStrangeOneIsNot) {
  const std::string handler = "on f of x at y\n{x, y}\nend f\n";
  EXPECT_EQ(errorOf(handler + "f of 1"), errors::missingArgument);
  EXPECT_EQ(errorOf(handler + "f of 1 at 2 given z:3"), 0);
}

TEST_F(HandlersTest, SwitchesAreTruthValues) {
  const std::string handler = "on f of x given loud:l, long:m\n{l, m}\nend f\n";
  EXPECT_EQ(result(handler + "f of 1 with loud and long"), "{true, true}");
  EXPECT_EQ(result(handler + "f of 1 without loud and long"), "{false, false}");
  EXPECT_EQ(result(handler + "f of 1 with long without loud"), "{false, true}");
}

TEST_F(HandlersTest, ParametersCanBeTakenApart) {
  EXPECT_EQ(result("on f({a, {b, c}}, d)\n{a, b, c, d}\nend f\nf({1, {2, 3}}, 4)"), "{1, 2, 3, 4}");
  EXPECT_EQ(result("on f of {a, b} at c\n{a, b, c}\nend f\nf of {1, 2} at 3"), "{1, 2, 3}");
  EXPECT_EQ(errorOf("on f({a, b})\nend f\nf(1)"), errors::noSuchObject);
  EXPECT_EQ(result("property a : 1\non f({a, b})\nb\nend f\nf({5, 6})\na"), "1");
}

TEST_F(HandlersTest, AnErrorLeavesAllHandlersUntilSomeoneCatchesIt) {
  EXPECT_EQ(result("on f()\ng()\nreturn \"never\"\nend f\non g()\nerror \"x\" number 3\nend g\n"
                   "try\nf()\non error number n\nn\nend try"),
            "3");
}

TEST_F(HandlersTest, ReturnLeavesLoopsAndBlocks) {
  EXPECT_EQ(result("on f()\nrepeat with i from 1 to 9\ntry\nif i = 3 then return i\nend try\n"
                   "end repeat\nend f\nf()"),
            "3");
}

TEST_F(HandlersTest, AHandlerThatGivesNothingHasNoValue) {
  EXPECT_EQ(result("on f()\nreturn\nend f\nf()"), "no result");
  EXPECT_EQ(errorOf("on f()\nend f\n{f()}"), errors::noResult);
  EXPECT_EQ(errorOf("on f()\nend f\nset x to f()\nx"), errors::notDefined);
  EXPECT_NE(errorOf("on f()\nend f\nf() & 1"), 0);
}

TEST_F(HandlersTest, ExitBelongsToALoopOfItsHandler) {
  EXPECT_EQ(errorOf("on f()\nexit repeat\nend f\nf()"), errors::strayExit);
  EXPECT_EQ(errorOf("repeat\nscript\nexit repeat\nend script\nend repeat"), errors::strayExit);
  EXPECT_EQ(errorOf("repeat\nend repeat\nexit repeat"), errors::strayExit);
  EXPECT_EQ(result("repeat\ntry\nif true then exit repeat\nend try\nend repeat\n1"), "1");
}

TEST_F(HandlersTest, AHandlerInsideAHandlerIsNoStatement) {
  EXPECT_EQ(errorOf("on f()\non g()\nend g\nend f\nf()"), errors::syntax);
}

TEST_F(HandlersTest, VariablesOfTheRunHandlerAreHiddenFromOthers) {
  EXPECT_EQ(errorOf("set x to 1\non f()\nx\nend f\nf()"), errors::notDefined);
  EXPECT_EQ(result("global x\nset x to 1\non f()\nx\nend f\nf()"), "1");
}

TEST_F(HandlersTest, GlobalVariablesNeedNoDeclarationOutside) {
  EXPECT_EQ(result("on f()\nglobal g\nset g to 5\nend f\non h()\nglobal g\ng\nend h\nf()\nh()"),
            "5");
}

} // namespace
} // namespace tavrel::script
