#include "support/CoreTest.h"
#include "support/FrontSelection.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;

class ScriptCommands : public ControllerTest {
protected:
  ScriptableApplication& scriptable() { return *desktop.scripting.control.application; }

  PropertyList convert(ScriptArguments arguments) {
    arguments.insert({{"sourceString", "x\ny é"}, {"targetEncoding", "Unicode (UTF-8)"}});
    return scriptable().handleConvertScriptCommand(arguments);
  }
};

TEST_F(ScriptCommands, ScriptsTalkToTheApplicationForAsLongAsItIsThere) {
  EXPECT_EQ(&scriptable(), &application);
  {
    RecordedEvents events;
    TVApplication second(events);
    TVController another(second);
  }
  EXPECT_EQ(desktop.scripting.control.application, nullptr);
}

TEST_F(ScriptCommands, CopyPutsTheSelectionOnTheClipboard) {
  privatePasteboard().declareTypes({pasteboardType::html, pasteboardType::string});
  privatePasteboard().setString("text", pasteboardType::string);
  scriptable().handleCopyToClipboardScriptCommand();
  Pasteboard& general = desktop.pasteboards.general();
  EXPECT_THAT(general.types(), ElementsAre(pasteboardType::html, pasteboardType::string));
  EXPECT_EQ(general.data(pasteboardType::html), std::nullopt);
  EXPECT_EQ(general.string(pasteboardType::string), "text");
}

TEST_F(ScriptCommands, CopyOfAnEmptySelectionLeavesAnEmptyClipboard) {
  copyText("before")(desktop.pasteboards.general());
  privatePasteboard().declareTypes({});
  scriptable().handleCopyToClipboardScriptCommand();
  EXPECT_THAT(desktop.pasteboards.general().types(), ::testing::IsEmpty());
}

TEST_F(ScriptCommands, ConvertEscapesTheText) {
  EXPECT_EQ(convert({}), PropertyList("x%0Ay%20%C3%A9"));
}

TEST_F(ScriptCommands, TheLineEndingsGoByTheirCode) {
  EXPECT_EQ(convert({{"targetLineEndings", 0x43522020}}), PropertyList("x%0Dy%20%C3%A9"));
  EXPECT_EQ(convert({{"targetLineEndings", 0x43524C46}}), PropertyList("x%0D%0Ay%20%C3%A9"));
  EXPECT_EQ(convert({{"targetLineEndings", 0x4C462020}}), PropertyList("x%0Ay%20%C3%A9"));
  EXPECT_EQ(convert({{"targetLineEndings", "CR  "}}), PropertyList("x%0Ay%20%C3%A9"));
}

TEST_F(ScriptCommands, RawDataComeBackAsData) {
  const PropertyList data = convert({{"rawData", true}});
  ASSERT_TRUE(data.data());
  EXPECT_EQ(std::string(data.data()->begin(), data.data()->end()), "x%0Ay%20%C3%A9");
  EXPECT_TRUE(convert({{"rawData", false}}).string());
}

TEST_F(ScriptCommands, AnUnknownEncodingGivesTheEmptyStringEvenAsData) {
  EXPECT_EQ(convert({{"targetEncoding", "unicode (UTF-8)"}, {"rawData", true}}), PropertyList(""));
  EXPECT_EQ(scriptable().handleConvertScriptCommand({}), PropertyList(""));
}

TEST_F(ScriptCommands, UninstallAsksThePerson) {
  scriptable().handleUninstallScriptCommand();
  ASSERT_EQ(desktop.alerts.control.shown.size(), 1U);
  EXPECT_EQ(desktop.alerts.control.shown[0].title, "Uninstall Tavrel from your system.");
}

TEST_F(ScriptCommands, TheSelectionIsAnsweredWhateverWasAssigned) {
  application.setContextObject(PropertyList("assigned"));
  copyText("selected")(privatePasteboard());
  EXPECT_EQ(scriptable().contextObject(), PropertyList("selected"));
}

} // namespace
} // namespace tavrel
