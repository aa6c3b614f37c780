#include "contract/linux/scripts/FakeScriptable.h"
#include "contract/linux/scripts/ScriptHostFixture.h"

namespace tavrel {
namespace {

/// Scripts that ask the program itself.
class ScriptTavrelTest : public ScriptHostFixture {
protected:
  ScriptTavrelTest() { application = &scriptable; }

  std::string ask(const std::string& what) {
    return result("tell application \"Tavrel\" to " + what);
  }
  FakeScriptable scriptable;
};

TEST_F(ScriptTavrelTest, TheSelectionIsAListOfPathsOrAText) {
  scriptable.context = PropertyList::Array{"/a b", "/c"};
  EXPECT_EQ(ask("get context object"), "{\"/a b\", \"/c\"}");
  EXPECT_EQ(ask("get item -1 of context object"), "\"/c\"");
  EXPECT_EQ(ask("count context object"), "2");
  scriptable.context = "words";
  EXPECT_EQ(ask("get context object"), "\"words\"");
}

TEST_F(ScriptTavrelTest, AnImageIsAnError) {
  scriptable.context = Bytes{1, 2};
  EXPECT_THAT(ask("get context object"), ::testing::StartsWith("error -1700"));
}

TEST_F(ScriptTavrelTest, ItTellsOfItself) {
  EXPECT_EQ(ask("get {host app name, current localization, long version, name, running}"),
            "{\"Editor\", \"English\", \"Tavrel 1.2\", \"Tavrel\", true}");
  EXPECT_THAT(ask("get version"), ::testing::StartsWith("error -1728"));
}

TEST_F(ScriptTavrelTest, CommandsReachTheApplication) {
  EXPECT_EQ(ask("copy to clipboard"), "missing value");
  EXPECT_EQ(ask("uninstall"), "missing value");
  EXPECT_EQ(scriptable.copies, 1);
  EXPECT_EQ(scriptable.removals, 1);
}

TEST_F(ScriptTavrelTest, ConvertHandsOverItsParameters) {
  EXPECT_EQ(ask("convert \"a b\" target encoding \"Unicode (UTF-8)\" target line endings CRLF "
                "raw data true"),
            "\"a%20b\"");
  const ScriptArguments expected{{"sourceString", "a b"},
                                 {"targetEncoding", "Unicode (UTF-8)"},
                                 {"rawData", true},
                                 {"targetLineEndings", std::int64_t{0x43524C46}}};
  EXPECT_EQ(PropertyList(scriptable.conversions.at(0)), PropertyList(expected));
}

TEST_F(ScriptTavrelTest, TheTextToConvertMayBeTheSelection) {
  scriptable.context = "words";
  EXPECT_EQ(ask("convert context object target encoding \"Western (ASCII)\""), "\"a%20b\"");
  EXPECT_EQ(*stringFor(scriptable.conversions.at(0), "sourceString"), "words");
}

TEST_F(ScriptTavrelTest, WhatItDoesNotKnowIsAnError) {
  EXPECT_THAT(ask("quit"), ::testing::StartsWith("error -1708"));
  application = nullptr;
  EXPECT_THAT(ask("copy to clipboard"), ::testing::StartsWith("error -600"));
}

} // namespace
} // namespace tavrel
