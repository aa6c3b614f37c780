#include "script/ScriptTest.h"

namespace tavrel::script {
namespace {

using AppendTest = ScriptTest;

TEST_F(AppendTest, TheResultIsWhatTheVariableBecame) {
  EXPECT_EQ(result("set t to \"a\"\nset t to t & \"b\""), "\"ab\"");
  EXPECT_EQ(result("set l to {1}\nset l to l & 2 & 3\nresult"), "{1, 2, 3}");
}

TEST_F(AppendTest, SeveralPiecesAreJoinedFromTheLeft) {
  EXPECT_EQ(result("set t to \"a\"\nset t to t & 1 & {2, 3} & true\nt"), "\"a123true\"");
  EXPECT_EQ(result("set l to {}\nset l to l & \"a\" & \"b\" & {1, {2}}\nl"),
            "{\"a\", \"b\", 1, {2}}");
  EXPECT_EQ(result("set n to 1\nset n to n & 2 & \"a\"\nn"), "{1, 2, \"a\"}");
  EXPECT_EQ(result("set r to {a:1}\nset r to r & {b:2} & {c:3}\ncount r"), "3");
  EXPECT_EQ(result("set t to \"a\"\nset t to t & \"b\" & {c:1}\nt"), "{\"ab\", 1}");
}

TEST_F(AppendTest, OthersKeepWhatTheyHad) {
  EXPECT_EQ(result("set a to \"x\"\nset b to a\nset a to a & \"y\"\n{a, b}"), "{\"xy\", \"x\"}");
  EXPECT_EQ(result("set a to {1}\nset b to a\nset a to a & 2\n{a, b}"), "{{1, 2}, {1}}");
  EXPECT_EQ(result("set a to {1}\nset a to a & 2\nset b to result\nset a to a & 3\nb"), "{1, 2}");
  EXPECT_EQ(result("set a to {1}\nset a to a & a & a\na"), "{1, 1, 1}");
}

TEST_F(AppendTest, AHandlerThatChangesTheVariableComesTooLate) {
  EXPECT_EQ(result("global s\non f()\nset s to s & \"x\"\nreturn \"y\"\nend f\n"
                   "set s to \"a\"\nset s to s & f()\ns"),
            "\"ay\"");
  EXPECT_EQ(result("global s\nscript more\nset s to s & \"x\"\n\"y\"\nend script\n"
                   "set s to \"a\"\nset s to s & (run more)\ns"),
            "\"ay\"");
}

TEST_F(AppendTest, AnErrorLeavesTheVariableAsItWas) {
  EXPECT_EQ(result("set t to \"a\"\ntry\nset t to t & \"b\" & me\nend try\nt"), "\"a\"");
  EXPECT_EQ(result("on f()\nend f\nset l to {1}\ntry\nset l to l & 2 & f()\nend try\nl"), "{1}");
}

} // namespace
} // namespace tavrel::script
