#include "script/ScriptTest.h"

namespace tavrel::script {
namespace {

class ScriptObjectsTest : public ScriptTest {
protected:
  /// b inherits from a.
  const std::string family = "script a\nproperty x : 1\non f()\nmy x\nend f\non g()\nx\nend g\n"
                             "on h(n)\nn + 1\nend h\nend script\n"
                             "script b\nproperty parent : a\nproperty x : 2\n"
                             "on h(n)\n10 * (continue h(n))\nend h\nend script\n";
};

TEST_F(ScriptObjectsTest, AHeirUnderstandsWhatItsParentDoes) {
  EXPECT_EQ(result(family + "f() of a"), "1");
  EXPECT_EQ(result(family + "g() of b"), "1");
}

TEST_F(ScriptObjectsTest, MyIsTheScriptThatWasAsked) {
  EXPECT_EQ(result(family + "f() of b"), "2");
}

TEST_F(ScriptObjectsTest, ContinueAsksTheParent) {
  EXPECT_EQ(result(family + "h(1) of b"), "20");
}

TEST_F(ScriptObjectsTest, ContinueGoesOnFromGenerationToGeneration) {
  EXPECT_EQ(result(family + "script c\nproperty parent : b\non h(n)\n(continue h(n)) + 3\nend h\n"
                            "end script\nh(1) of c"),
            "23");
}

TEST_F(ScriptObjectsTest, ContinueKeepsLabels) {
  EXPECT_EQ(result("script a\non f of x at y\nx - y\nend f\nend script\n"
                   "script b\nproperty parent : a\non f of x at y\ncontinue f of y at x\nend f\n"
                   "end script\ntell b to f of 1 at 5"),
            "4");
}

TEST_F(ScriptObjectsTest, ContinueWithoutAnyoneToGoOnIsAnError) {
  EXPECT_EQ(errorOf("script s\non f()\ncontinue f()\nend f\nend script\nf() of s"),
            errors::notUnderstood);
}

TEST_F(ScriptObjectsTest, PropertiesOfTheParentAreReachedThroughTheHeir) {
  EXPECT_EQ(result("script a\nproperty y : 1\nend script\nscript b\nproperty parent : a\n"
                   "end script\nset y of b to 7\ny of a"),
            "7");
}

TEST_F(ScriptObjectsTest, AScriptUnderstandsTheScriptItStandsIn) {
  EXPECT_EQ(result("on f()\n1\nend f\nscript s\non g()\nf() + 1\nend g\nend script\ng() of s"),
            "2");
}

TEST_F(ScriptObjectsTest, ScriptsStandInsideScripts) {
  EXPECT_EQ(result("script outer\nproperty x : 5\nscript inner\non f()\nx\nend f\nend script\n"
                   "end script\nf() of inner of outer"),
            "5");
}

TEST_F(ScriptObjectsTest, EveryCallMakesAScriptOfItsOwn) {
  const std::string maker = "on counter(n)\nscript\nproperty c : n\non up()\nset c to c + 1\nc\n"
                            "end up\nend script\nend counter\n"
                            "set a to counter(1)\nset b to counter(10)\n";
  EXPECT_EQ(result(maker + "{up() of a, up() of a, up() of b}"), "{2, 3, 11}");
}

TEST_F(ScriptObjectsTest, HandlersKeepWhatTheirMakerKnew) {
  EXPECT_EQ(result("on adder(n)\nscript\non add(x)\nx + n\nend add\nend script\nend adder\n"
                   "set a to adder(1)\nset b to adder(2)\n{add(10) of a, add(10) of b}"),
            "{11, 12}");
}

TEST_F(ScriptObjectsTest, WhatMakersKnewIsKeptThroughSeveralLevels) {
  EXPECT_EQ(result("on outerOne(a)\nscript\non g(b)\nscript\non g(c)\n{a, b, c}\nend g\n"
                   "end script\nend g\nend script\nend outerOne\ng(3) of (g(2) of outerOne(1))"),
            "{1, 2, 3}");
}

TEST_F(ScriptObjectsTest, TheParentCanBeTheMakersParameter) {
  EXPECT_EQ(result("script s\non f()\n4\nend f\nend script\non heir(p)\nscript\n"
                   "property parent : p\nend script\nend heir\nf() of heir(s)"),
            "4");
}

TEST_F(ScriptObjectsTest, CopyMakesAScriptOfItsOwnAndSetDoesNot) {
  const std::string script = "script a\nproperty l : {1}\nend script\n";
  EXPECT_EQ(result(script + "copy a to b\nset end of l of b to 2\n{l of a, l of b}"),
            "{{1}, {1, 2}}");
  EXPECT_EQ(result(script + "set b to a\nset end of l of b to 2\nl of a"), "{1, 2}");
}

TEST_F(ScriptObjectsTest, RunRunsTheStatementsOfAScript) {
  EXPECT_EQ(result("script s\nproperty n : 1\nset n to n + 1\nn\nend script\nrun s\nrun s"), "3");
}

TEST_F(ScriptObjectsTest, ARunHandlerStandsForAllStatements) {
  EXPECT_EQ(errorOf("on run\n1\nend run\n2"), errors::syntax);
  EXPECT_EQ(result("use scripting additions\nproperty p : 1\non run\np\nend run"), "1");
}

TEST_F(ScriptObjectsTest, WhatAScriptDoesNotHaveIsAnError) {
  EXPECT_EQ(errorOf("script s\nend script\nf() of s"), errors::notUnderstood);
  EXPECT_EQ(errorOf("script s\nend script\nx of s"), errors::noSuchObject);
  EXPECT_EQ(errorOf("script s\nend script\nset x of s to 1"), errors::cannotSet);
}

} // namespace
} // namespace tavrel::script
