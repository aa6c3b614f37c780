#include "script/ScriptTest.h"

namespace tavrel::script {
namespace {

class CoercionTest : public ScriptTest {
protected:
  void cannot(const std::string& source) {
    EXPECT_EQ(errorOf(source), errors::cannotCoerce) << source;
  }
};

TEST_F(CoercionTest, TheEmptyTextIsNothingElse) {
  for (const char* type : {"integer", "real", "number", "boolean", "date"})
    cannot(std::string("\"\" as ") + type);
  EXPECT_EQ(result("{\"\" as text, \"\" as list, length of \"\"}"), "{\"\", {\"\"}, 0}");
}

TEST_F(CoercionTest, TruthIsWrittenOneWay) {
  EXPECT_EQ(result("{\"true\" as boolean, \"false\" as boolean, 1 as boolean, 0 as boolean}"),
            "{true, false, true, false}");
  for (const char* value : {"\"yes\"", "\"1\"", "2", "1.0", "{}", "missing value"})
    cannot(std::string(value) + " as boolean");
}

TEST_F(CoercionTest, AListOfOneStandsForItsElement) {
  EXPECT_EQ(result("{{5} as integer, {\"a\"} as text, {true} as boolean, {2} + 1}"),
            "{5, \"a\", true, 3}");
  cannot("{1, 2} as integer");
  cannot("{} as integer");
}

TEST_F(CoercionTest, EveryValueCanBeAListOfItself) {
  EXPECT_EQ(result("{missing value as list, \"ab\" as list, {a:1} as list, {} as list}"),
            "{{missing value}, {\"ab\"}, {1}, {}}");
}

TEST_F(CoercionTest, ScriptsAndRecordsAreNoText) {
  cannot("me as text");
  cannot("{a:1} as text");
  cannot("{1, {a:1}} as text");
  cannot("\"a\" & me");
}

TEST_F(CoercionTest, RealsAreWrittenWithAsFewDigitsAsTheyNeed) {
  EXPECT_EQ(result("{0.1 as text, 100.0 as text, 1.0E+10 as text, -0.5 as text}"),
            "{\"0.1\", \"100.0\", \"1.0E+10\", \"-0.5\"}");
}

TEST_F(CoercionTest, ConstantsAndClassesAreTheirNames) {
  EXPECT_EQ(result("{yes as text, list as text, March as text, missing value as text}"),
            "{\"yes\", \"list\", \"March\", \"missing value\"}");
  EXPECT_EQ(result("{March as integer, Saturday as integer, December * 1}"), "{3, 7, 12}");
  cannot("yes as integer");
}

TEST_F(CoercionTest, AClassOfItsOwnChangesNothing) {
  EXPECT_EQ(result("{{a:1} as record, yes as constant, class of (me as script)}"),
            "{{a:1}, yes, script}");
  cannot("1 as record");
  cannot("1 as date");
  cannot("1 as script");
}

TEST_F(CoercionTest, FilesComeFromTexts) {
  EXPECT_EQ(result("{\"/a\" as POSIX file, \"/a\" as alias, POSIX file \"/a\" as text}"),
            "{POSIX file \"/a\", alias \"/a\", \"/a\"}");
  EXPECT_EQ(result("{\"/a\", POSIX file \"/b\"} as alias list"), "{alias \"/a\", alias \"/b\"}");
  cannot("1 as alias");
  cannot("{1} as alias list");
}

TEST_F(CoercionTest, WhatIsNoClassIsAnError) {
  cannot("1 as 2");
  EXPECT_EQ(errorOf("1 as neverSet"), errors::notDefined);
}

TEST_F(CoercionTest, AnAliasIsOfAFileThatIsThere) {
  host.replies["exists"] = [](const HostEvent& event) {
    return HostValue{std::get<HostFile>(event.direct->value).path == "/there"};
  };
  EXPECT_EQ(result("{alias \"/there\", POSIX file \"/there\" as alias}"),
            "{alias \"/there\", alias \"/there\"}");
  EXPECT_EQ(result("alias \"/gone\""), "error -43: File /gone wasn’t found.");
  EXPECT_EQ(result("try\nPOSIX file \"/gone\" as alias\n\"there\"\non error\n\"gone\"\nend try"),
            "\"gone\"");
  EXPECT_EQ(result("POSIX file \"/gone\""), "POSIX file \"/gone\"");
}

TEST_F(CoercionTest, ACastCanGoOn) {
  EXPECT_EQ(result("{1 as text & \"a\", \"2\" as integer + 1, 1 as text as integer as list}"),
            "{\"1a\", 3, {1}}");
  EXPECT_EQ(result("\"7\" as integer = 7 and \"7\" as integer > 6"), "true");
}

TEST_F(CoercionTest, OnlyTruthValuesHaveALogic) {
  for (const char* source : {"1 + 1 and true", "true and \"x\"", "not \"x\"", "if {} then 1",
                             "repeat while 2\nend repeat"})
    cannot(source);
}

TEST_F(CoercionTest, ValuesOfOtherClassesHaveNoOrder) {
  cannot("{1, 2} < 2");
  cannot("true < me");
  cannot("{1, 2} < {1, 3}");
  cannot("(current date) < 5");
  for (const char* value : {"missing value", "true", "yes", "text", "{a:1}", "{}"}) {
    cannot(std::string(value) + " < 1");
    cannot(std::string("\"a\" > ") + value);
  }
  EXPECT_EQ(result("{5} < 6"), "true");
  EXPECT_EQ(result("{1 < \"2\", \"b\" > \"A\"}"), "{true, true}");
}

} // namespace
} // namespace tavrel::script
