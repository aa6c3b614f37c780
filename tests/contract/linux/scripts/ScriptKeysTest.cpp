#include "contract/linux/scripts/ScriptHostFixture.h"
#include "support/Desktop.h"

#include <QGuiApplication>
#include <QLineEdit>

namespace tavrel {
namespace {

using ::testing::HasSubstr;

/// A line of text in front, for scripts to type in.
class ScriptKeysTest : public ScriptHostFixture {
protected:
  void SetUp() override {
    line.show();
    line.activateWindow();
    ASSERT_TRUE(eventually([&] { return line.hasFocus() && windows.activeWindow() != 0; }));
  }
  std::string typed(const std::string& command) {
    return result("tell application \"System Events\" to " + command);
  }
  [[nodiscard]] bool reads(const char* text) {
    return eventually([&] { return line.text() == QString::fromUtf8(text); });
  }

  QLineEdit line;
};

TEST_F(ScriptKeysTest, TheProcessInFrontIsFound) {
  ASSERT_TRUE(eventually([&] { return applications.active().has_value(); }));
  const auto front = applications.active();
  ASSERT_TRUE(front && front->name);
  EXPECT_EQ(typed("get name of first application process whose frontmost is true"),
            "\"" + *front->name + "\"");
}

TEST_F(ScriptKeysTest, ATextIsTypedWithCapitalsAndSigns) {
  EXPECT_EQ(typed("keystroke \"Hello, World! (3%)\""), "missing value");
  EXPECT_TRUE(reads("Hello, World! (3%)")) << line.text().toStdString();
}

TEST_F(ScriptKeysTest, ShiftIsHeldWhileTheKeyIsPressed) {
  EXPECT_EQ(typed("keystroke \"a\" using shift down"), "missing value");
  EXPECT_EQ(typed("keystroke \"b\""), "missing value");
  EXPECT_TRUE(reads("Ab")) << line.text().toStdString();
}

TEST_F(ScriptKeysTest, CommandMakesAShortcutOfTheKey) {
  line.setText("old");
  EXPECT_EQ(typed("keystroke \"a\" using command down"), "missing value");
  EXPECT_TRUE(eventually([&] { return line.selectedText() == "old"; }));
  EXPECT_EQ(typed("keystroke \"new\""), "missing value");
  EXPECT_TRUE(reads("new"));
}

TEST_F(ScriptKeysTest, SeveralModifiersAreHeldTogether) {
  line.setText("one two");
  EXPECT_EQ(typed("key code 123 using {command down, shift down}"), "missing value");
  EXPECT_TRUE(eventually([&] { return line.selectedText() == "two"; }));
}

TEST_F(ScriptKeysTest, KeyCodesAreThePlacesOfKeys) {
  line.setText("ab");
  EXPECT_EQ(typed("key code {123, 51}"), "missing value") << "left, then backward delete";
  EXPECT_TRUE(reads("b"));
}

TEST_F(ScriptKeysTest, NoModifierIsDownAfterwards) {
  (void)typed("keystroke \"a\" using {command down, shift down, option down, control down}");
  EXPECT_TRUE(
      eventually([] { return QGuiApplication::queryKeyboardModifiers() == Qt::NoModifier; }));
}

TEST_F(ScriptKeysTest, WhatCannotBeTypedIsAnErrorWithANumber) {
  EXPECT_THAT(typed("keystroke \"😀\""), HasSubstr("error -1700"));
  EXPECT_THAT(typed("keystroke \"a\" using 5"), HasSubstr("error -1700"));
  EXPECT_THAT(typed("keystroke {}"), HasSubstr("error -1701"));
  EXPECT_THAT(typed("key code 128"), HasSubstr("error -1719"));
  EXPECT_THAT(typed("key code -1"), HasSubstr("error -1719"));
  EXPECT_TRUE(line.text().isEmpty());
}

TEST_F(ScriptKeysTest, TheApplicationsOwnSourcesMayNotType) {
  const auto loaded = engine.loadSource("tell application \"System Events\" to keystroke \"a\"",
                                        script::Author::application);
  const auto* refused = std::get_if<script::ErrorReport>(&loaded);
  const auto error =
      refused ? std::optional(*refused) : engine.run(std::get<script::ScriptId>(loaded)).error;
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number, script::errors::notPermitted);
}

} // namespace
} // namespace tavrel
