#include "script/ScriptTest.h"

namespace tavrel::script {
namespace {

using LexerTest = ScriptTest;

TEST_F(LexerTest, AnEmptyScriptRuns) {
  for (const char* source : {"", "\n\n", "  \t ", "-- only a comment", "(* only *)", "#!/bin/x\n"})
    EXPECT_EQ(result(source), "no result") << source;
}

TEST_F(LexerTest, EveryKindOfLineEndCounts) {
  EXPECT_EQ(result("set x to 1\r\nset y to 2\rx + y\n"), "3");
}

TEST_F(LexerTest, CommentsStandAnywhere) {
  EXPECT_EQ(result("1 + (* one (* more *) *) 2 -- three"), "3");
  EXPECT_EQ(result("1 # one\n"), "1");
  EXPECT_EQ(errorOf("(* (* *) 1"), errors::syntax);
}

TEST_F(LexerTest, LinesGoOnAfterTheirSign) {
  EXPECT_EQ(result("set x to ¬\n  1 + ¬\r\n2\nx"), "3");
  EXPECT_EQ(result("1 + ¬ -- the rest\n2"), "3");
}

TEST_F(LexerTest, TextsKeepTheirEscapes) {
  EXPECT_EQ(result("id of \"\\n\\r\\t\\\"\\\\\""), "{10, 13, 9, 34, 92}");
  EXPECT_EQ(result("\"a\nb\" = \"a\\nb\""), "true");
  EXPECT_EQ(errorOf("\"\\x\""), errors::syntax);
  EXPECT_EQ(errorOf("\"abc"), errors::syntax);
  EXPECT_EQ(errorOf("\"abc\\"), errors::syntax);
}

TEST_F(LexerTest, WordsHaveNoCase) {
  EXPECT_EQ(result("SET Total TO 1\nIf TOTAL = 1 Then Return \"yes\""), "\"yes\"");
}

TEST_F(LexerTest, NamesBetweenBarsMayBeAnything) {
  EXPECT_EQ(result("set |if| to 1\nset |a b| to 2\n|if| + |A B|"), "3");
  EXPECT_EQ(errorOf("set |a to 1"), errors::syntax);
  EXPECT_EQ(errorOf("set |a\nb| to 1"), errors::syntax);
}

TEST_F(LexerTest, SignsHaveSeveralForms) {
  EXPECT_EQ(result("{1 ≠ 2, 1 /= 2, 1 ≤ 2, 1 <= 2, 2 ≥ 1, 2 >= 1, 6 ÷ 2}"),
            "{true, true, true, true, true, true, 3.0}");
}

TEST_F(LexerTest, ContractionsAreTwoWords) {
  EXPECT_EQ(result("{1 isn't 2, \"a\" doesn't contain \"b\", 1 isn’t 1}"), "{true, true, false}");
}

TEST_F(LexerTest, NumbersNeedNoBlanksAroundThem) {
  EXPECT_EQ(result("{1+2,3*4,-5}"), "{3, 12, -5}");
  EXPECT_EQ(result("1.5e3"), "1500.0");
  EXPECT_EQ(result(".5"), "0.5");
}

TEST_F(LexerTest, ABlankThatDoesNotBreakIsABlank) {
  EXPECT_EQ(result("1\u00A0+\u00A02"), "3");
  EXPECT_EQ(result("\uFEFF1"), "1");
}

TEST_F(LexerTest, WhatIsNoSignIsAnError) {
  for (const char* source : {";", "1 ; 2", "@", "$x", "1 % 2", "«class utf8", "«x»", "ä", "💥"})
    EXPECT_EQ(errorOf(source), errors::syntax) << source;
}

TEST_F(LexerTest, BytesThatAreNoTextAreAnError) {
  EXPECT_EQ(errorOf("\"\xFF\xFE\""), errors::syntax);
  EXPECT_EQ(errorOf("\xC3"), errors::syntax);
}

TEST_F(LexerTest, AZeroByteIsNoEnd) {
  EXPECT_EQ(errorOf(std::string("1\0 2", 4)), errors::syntax);
}

} // namespace
} // namespace tavrel::script
