#include "script/ScriptTest.h"

namespace tavrel::script {
namespace {

class TellTest : public ScriptTest {
protected:
  TellTest() {
    for (const char* command : {"get", "set", "count", "exists", "activate", "make", "open"})
      host.replies[command] = [](const HostEvent&) { return HostValue{std::string("answer")}; };
  }
  /// "command of application" for all that was asked.
  std::string asked(const std::string& source) {
    host.asked.clear();
    (void)outcome(source);
    std::string all;
    for (const HostEvent& event : host.asked)
      all.append(all.empty() ? "" : ", ").append(event.command + " of " + event.application);
    return all;
  }
};

TEST_F(TellTest, ACommandGoesToTheApplicationThatIsTold) {
  EXPECT_EQ(asked("tell application \"Finder\" to activate"), "activate of Finder");
  EXPECT_EQ(asked("activate application \"Finder\""), "activate of Finder");
}

TEST_F(TellTest, TheInnermostApplicationIsAsked) {
  EXPECT_EQ(asked("tell application \"A\"\ntell application \"B\" to activate\nactivate\nend tell"),
            "activate of B, activate of A");
}

TEST_F(TellTest, AnObjectIsAskedOnlyWhenItsValueIsWanted) {
  EXPECT_EQ(asked("tell application \"Finder\"\nopen home\nend tell"), "open of Finder");
  EXPECT_EQ(asked("tell application \"Finder\"\nset x to name of home\nend tell"), "get of Finder");
}

TEST_F(TellTest, GetMayStandInParentheses) {
  EXPECT_EQ(result("tell application \"Finder\" to set x to (get name of home) & \"!\""),
            "\"answer!\"");
}

TEST_F(TellTest, AnAnswerIsAValueOfItsOwn) {
  EXPECT_EQ(result("tell application \"Finder\" to set x to name of home\nlength of x"), "6");
}

TEST_F(TellTest, HandlersOfTheScriptNeedMy) {
  const std::string handler = "on f()\n1\nend f\n";
  EXPECT_EQ(errorOf(handler + "tell application \"Finder\" to f()"), errors::notUnderstood);
  EXPECT_EQ(result(handler + "tell application \"Finder\" to my f()"), "1");
}

TEST_F(TellTest, VariablesAreSeenInsideATell) {
  EXPECT_EQ(result("set x to 1\ntell application \"Finder\"\nset x to x + 1\nend tell\nx"), "2");
}

TEST_F(TellTest, ValuesCanBeTold) {
  EXPECT_EQ(result("tell {1, 2, 3} to get item 2"), "2");
  EXPECT_EQ(result("tell \"abc\"\nlength\nend tell"), "3");
  EXPECT_EQ(result("tell 5 to get it + 1"), "6");
}

TEST_F(TellTest, TermsAreKnownOnlyToTheirApplication) {
  EXPECT_EQ(errorOf("keystroke \"a\""), errors::syntax);
  EXPECT_EQ(errorOf("tell application \"Finder\" to keystroke \"a\""), errors::syntax);
  EXPECT_EQ(errorOf("tell application \"Finder\"\nactivate\nend tell\nreveal \"a\""),
            errors::syntax);
}

TEST_F(TellTest, TermsReachAsFarAsTheirBlock) {
  const std::string begin = "set n to \"Finder\"\nusing terms from app \"Finder\"\n";
  const std::string block = begin + "tell application n to activate\nend using terms from\n";
  EXPECT_EQ(asked(begin + "tell application n to make new folder at home\nend using terms from"),
            "make of Finder");
  EXPECT_EQ(errorOf(block + "tell application n to reveal \"a\""), errors::syntax);
}

TEST_F(TellTest, ATextMayBeginWithReturn) {
  EXPECT_EQ(result("tell 5 to get count (return & \"a\")"), "2");
  (void)outcome("display dialog return & \"a\"");
  ASSERT_EQ(host.asked.size(), 1U);
  EXPECT_EQ(std::get<std::string>(host.asked[0].direct->value), "\ra");
}

TEST_F(TellTest, APrepositionAfterAClassBeginsTheNextParameter) {
  (void)outcome("tell application \"Finder\" to make new folder at home");
  ASSERT_EQ(host.asked.size(), 1U);
  EXPECT_TRUE(host.asked[0].parameters.contains("new"));
  EXPECT_TRUE(host.asked[0].parameters.contains("at"));
}

TEST_F(TellTest, WhatADesktopDoesNotUnderstandIsAnError) {
  host.replies.clear();
  EXPECT_EQ(errorOf("tell application \"Finder\" to activate"), errors::notUnderstood);
  EXPECT_EQ(result("try\ntell application \"Finder\" to activate\non error number n\nn\nend try"),
            "-1708");
}

TEST_F(TellTest, TheBytesOfAComplaintBecomeText) {
  host.replies["beep"] = [](const HostEvent&) {
    return HostError{7, "a\xFF"
                        "b"};
  };
  EXPECT_EQ(result("try\nbeep\non error m\n{m, length of m}\nend try"), "{\"a\uFFFDb\", 3}");
}

TEST_F(TellTest, TheTargetComesBackAfterAnError) {
  EXPECT_EQ(result("try\ntell 5\nerror \"x\"\nend tell\nend try\ntell 6 to get it"), "6");
}

} // namespace
} // namespace tavrel::script
