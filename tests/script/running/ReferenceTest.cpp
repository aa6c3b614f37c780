#include "script/ScriptTest.h"

namespace tavrel::script {
namespace {

using ReferenceTest = ScriptTest;

TEST_F(ReferenceTest, AReferenceToAnItemWritesIntoTheList) {
  EXPECT_EQ(result("set l to {1, 2, 3}\nset r to a reference to item 2 of l\n"
                   "set contents of r to 5\nl"),
            "{1, 5, 3}");
}

TEST_F(ReferenceTest, AReferenceToAVariableWritesAndReadsTheVariable) {
  const std::string begin = "set x to 1\nset r to a reference to x\n";
  EXPECT_EQ(result(begin + "set contents of r to 5\n{x, r + 1, contents of r}"), "{5, 6, 5}");
  EXPECT_EQ(result(begin + "set x to 7\nr"), "7");
}

TEST_F(ReferenceTest, AReferenceToAPropertyWritesTheProperty) {
  EXPECT_EQ(result("property p : 1\nset r to a reference to p\nset contents of r to 7\np"), "7");
  EXPECT_EQ(result("script s\nproperty n : 1\nend script\nset r to a reference to n of s\n"
                   "set contents of r to 2\nn of s"),
            "2");
  EXPECT_EQ(result("set x to {a:1}\nset r to a reference to a of x\nset r's contents to 2\nx"),
            "{a:2}");
  EXPECT_EQ(result("set x to {a:1}\nset r to a reference to b of x\nset contents of r to 2\nx"),
            "error -10006: Can’t set b of {a:1}.");
}

TEST_F(ReferenceTest, APlaceIsLookedUpWhenItIsAskedFor) {
  EXPECT_EQ(result("set l to {1, 2}\nset r to a reference to item 2 of l\nset l to {3, 4}\nr"),
            "4");
  EXPECT_EQ(result("set l to {1, 2}\nset r to a reference to item 2 of l\nset l to {3, 4}\n"
                   "set contents of r to 5\nl"),
            "{3, 5}");
  EXPECT_EQ(errorOf("set l to {1, 2}\nset r to a reference to item 2 of l\nset l to {}\nr"),
            errors::noSuchObject);
}

TEST_F(ReferenceTest, APlaceInsideAPlaceIsWritten) {
  EXPECT_EQ(result("set l to {{a:{1, 2}}}\nset r to a reference to item 1 of a of item 1 of l\n"
                   "set contents of r to 0\nl"),
            "{{a:{0, 2}}}");
}

TEST_F(ReferenceTest, TheValueBehindAReferenceIsTakenApart) {
  const std::string begin = "set l to {1, 2}\nset r to a reference to l\n";
  EXPECT_EQ(result(begin + "{count r, item 2 of r, r contains 2, class of r}"),
            "{2, 2, true, list}");
  EXPECT_EQ(result(begin + "set item 1 of r to 3\nset end of r to 4\nl"), "{3, 2, 4}");
  EXPECT_EQ(result(begin + "set s to 0\nrepeat with x in r\nset s to s + x\nend repeat\ns"), "3");
  EXPECT_EQ(result(begin + "{r as text, every item of r whose it > 1}"), "{\"12\", {2}}");
  EXPECT_EQ(result(begin + "tell r to get item 2"), "2");
}

TEST_F(ReferenceTest, AReferenceInsideAListStaysOne) {
  const std::string begin =
      "set x to 1\nset y to 2\nset l to {a reference to x, a reference to y}\n";
  EXPECT_EQ(result(begin + "set contents of item 2 of l to 5\n{x, y, item 2 of l}"), "{1, 5, 5}");
  EXPECT_EQ(result(begin + "l as text"), "\"12\"");
}

TEST_F(ReferenceTest, AHandlerWritesThroughAReferenceThatItIsGiven) {
  const std::string handler =
      "on more(r)\nset contents of r to (contents of r) + 1\nend more\nset x to 1\n";
  EXPECT_EQ(result(handler + "more(a reference to x)\nx"), "2");
  EXPECT_EQ(result(handler + "set r to a reference to x\nmore(r)\nmore(r)\nx"), "3");
  EXPECT_EQ(errorOf(handler + "more(x)"), errors::cannotSet);
}

TEST_F(ReferenceTest, ALocalVariableHasNoReferences) {
  EXPECT_EQ(errorOf("on f()\nset x to 1\nset r to a reference to x\nend f\nf()"),
            errors::cannotCoerce);
  EXPECT_EQ(result("on f()\nset l to {1, 2}\nset r to a reference to item 2 of l\n"
                   "set contents of r to 5\nl\nend f\nf()"),
            "{1, 5}");
}

TEST_F(ReferenceTest, AReferenceToItselfIsAnErrorAndNoEndlessWay) {
  EXPECT_EQ(errorOf("set r to 1\nset r to a reference to r\nr + 1"), errors::stackOverflow);
  EXPECT_EQ(errorOf("set r to 1\nset r to a reference to item 1 of r\nr"), errors::stackOverflow);
}

TEST_F(ReferenceTest, TheDesktopGetsTheValueBehindAReference) {
  host.replies["display dialog"] = [](const HostEvent& event) {
    return HostValue{std::get<std::string>(event.direct->value)};
  };
  EXPECT_EQ(result("set l to {\"a\"}\nset r to a reference to item 1 of l\ndisplay dialog r"),
            "\"a\"");
  EXPECT_EQ(result("repeat with x in {\"a\"}\nset y to display dialog x\nset contents of x to 2\n"
                   "end repeat\ny"),
            "\"a\"");
}

TEST_F(ReferenceTest, AnElementThatIsWrittenThroughCounts) {
  EXPECT_EQ(result("set l to {{1, 2}, {3}}\nrepeat with x in l\nset contents of x to count x\n"
                   "end repeat\nl"),
            "{2, 1}");
}

TEST_F(ReferenceTest, AReferenceToAnObjectOfAnApplicationAsksTheApplication) {
  host.replies["get"] = [](const HostEvent&) { return HostValue{std::string("there")}; };
  host.replies["set"] = [](const HostEvent&) { return HostValue{}; };
  EXPECT_EQ(result("tell application \"Finder\"\nset r to a reference to folder \"a\" of home\n"
                   "set name of r to \"b\"\nname of r\nend tell"),
            "\"there\"");
  ASSERT_EQ(host.asked.size(), 2U);
  EXPECT_EQ(host.asked[0].command, "set");
  EXPECT_EQ(std::get<ObjectPath>(host.asked[0].direct->value).steps.size(), 3U);
}

} // namespace
} // namespace tavrel::script
