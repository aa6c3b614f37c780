#include "script/ScriptTest.h"

namespace tavrel::script {
namespace {

/// Where errors say they are, shown as the part of the source they mark.
class ErrorSpanTest : public ScriptTest {
protected:
  std::string marked(const std::string& source) {
    const RunResult run = outcome(source);
    if (!run.error)
      return "no error";
    const Span range = run.error->range;
    return source.substr(range.start, range.length);
  }
  std::string rangeOf(const std::string& source) {
    const RunResult run = outcome(source);
    const PropertyList dictionary = errorDictionary(*run.error, source);
    return *dictionary.stringFor("NSAppleScriptErrorRange");
  }
};

TEST_F(ErrorSpanTest, AWordThatDoesNotFitIsMarked) {
  EXPECT_EQ(marked("set x to 1 2"), "2");
  EXPECT_EQ(marked("set to 1"), "to");
  EXPECT_EQ(marked("1 +"), "");
  EXPECT_EQ(marked("if true then\n1\nend repeat"), "repeat");
}

TEST_F(ErrorSpanTest, ASignThatIsNoneIsMarked) {
  EXPECT_EQ(marked("1 + ;"), ";");
}

TEST_F(ErrorSpanTest, ATextWithoutItsEndIsMarkedAtItsStart) {
  EXPECT_EQ(rangeOf("set x to \"abc"), "{9, 1}");
  EXPECT_EQ(rangeOf("1 (* no end"), "{2, 1}");
  EXPECT_EQ(rangeOf("|abc"), "{0, 1}");
}

TEST_F(ErrorSpanTest, AnEscapeThatIsNoneIsMarked) {
  EXPECT_EQ(rangeOf("\"a\\q\""), "{2, 1}");
}

TEST_F(ErrorSpanTest, AStatementThatFailsIsMarked) {
  EXPECT_EQ(marked("set x to 1\nset y to x / 0\nset z to 1"), "set y to x / 0");
  EXPECT_EQ(marked("unknownName"), "unknownName");
  EXPECT_EQ(marked("error \"no\" number 5"), "error \"no\" number 5");
}

TEST_F(ErrorSpanTest, TheInnermostStatementIsMarked) {
  EXPECT_EQ(marked("repeat 2 times\nif true then\nitem 2 of {1}\nend if\nend repeat"),
            "item 2 of {1}");
}

TEST_F(ErrorSpanTest, TheStatementInTheHandlerIsMarked) {
  EXPECT_EQ(marked("on f()\n1 / 0\nend f\nf()"), "1 / 0");
}

TEST_F(ErrorSpanTest, AStatementThatWasPassedOnIsMarkedAnew) {
  EXPECT_EQ(marked("try\n1 / 0\non error m number n\nerror m number n\nend try"),
            "error m number n");
}

TEST_F(ErrorSpanTest, RangesCountUnitsOfUtf16) {
  EXPECT_EQ(rangeOf("\"😀é\"\n1 / 0"), "{6, 5}");
}

TEST_F(ErrorSpanTest, TheDictionaryTellsNumberAndMessage) {
  const std::string source = "error \"no luck\" number 7";
  const PropertyList dictionary = errorDictionary(*outcome(source).error, source);
  EXPECT_EQ(dictionary.find("NSAppleScriptErrorNumber")->integer(), 7);
  EXPECT_EQ(*dictionary.stringFor("NSAppleScriptErrorMessage"), "no luck");
  EXPECT_EQ(*dictionary.stringFor("NSAppleScriptErrorBriefMessage"), "no luck");
  EXPECT_EQ(dictionary.find("NSAppleScriptErrorAppName"), nullptr);
}

TEST_F(ErrorSpanTest, TheApplicationThatFailedIsNamed) {
  const std::string source = "tell application \"Finder\"\nactivate\nend tell";
  const PropertyList dictionary = errorDictionary(*outcome(source).error, source);
  EXPECT_EQ(*dictionary.stringFor("NSAppleScriptErrorAppName"), "Finder");
  EXPECT_EQ(*dictionary.stringFor("NSAppleScriptErrorRange"), "{26, 8}");
}

} // namespace
} // namespace tavrel::script
