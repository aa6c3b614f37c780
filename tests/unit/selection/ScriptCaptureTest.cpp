#include "base/Utf8.h"
#include "support/CoreTest.h"
#include "support/FrontSelection.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;

Bytes unitsOf(const std::string& text) {
  Bytes bytes;
  for (const char16_t unit : utf16FromUtf8(text)) {
    const auto* raw = reinterpret_cast<const std::uint8_t*>(&unit);
    bytes.insert(bytes.end(), raw, raw + sizeof unit);
  }
  return bytes;
}

class ScriptCapture : public ControllerTest {
protected:
  using Result = std::optional<AppleEventDescriptor>;

  ScriptCapture() {
    for (const char* name :
         {"CopyFinderSelection", "CopyTextEditSelection", "CopyPathFinderSelection"})
      provide(name);
    general.declareTypes({"mine", "more"});
    general.setData({1, 2}, "mine");
  }

  void provide(const std::string& name) {
    const std::string path = "/resources/" + name + ".scpt";
    desktop.bundle.control.resourcePaths[name + ".scpt"] = path;
    desktop.scripts.control.resultScripts[path] = [this, name]() -> Result {
      ran.push_back(name);
      return script();
    };
  }

  void returnPaths(const std::vector<std::string>& paths) {
    AppleEventDescriptor list{typeAEList, {}};
    for (const std::string& path : paths)
      list.items.push_back(unitsOf(path));
    script = [list] { return list; };
  }

  void expectTheClipboardUntouched() {
    EXPECT_THAT(general.types(), ElementsAre("mine", "more"));
    EXPECT_THAT(general.data("mine"), Optional(Bytes{1, 2}));
    EXPECT_EQ(general.data("more"), std::nullopt);
  }

  std::function<Result()> script = [] { return std::nullopt; };
  std::vector<std::string> ran;
  Pasteboard& general = desktop.pasteboards.general();
  Pasteboard& selection = privatePasteboard();
};

TEST_F(ScriptCapture, RunsTheScriptOfTheApplication) {
  for (const char* name : {"Finder", "TextEdit", "Path Finder"})
    controller.setSelectionToPasteboardWithScript(name);
  EXPECT_THAT(
      ran, ElementsAre("CopyFinderSelection", "CopyTextEditSelection", "CopyPathFinderSelection"));
  EXPECT_TRUE(desktop.accessibility.control.posted.empty());
}

TEST_F(ScriptCapture, OfAnApplicationWithoutAScriptTouchesNothing) {
  capture({"/before"});
  const std::int64_t before = general.changeCount();
  for (const char* name : {"finder", "Editor", "", "Tavrel"})
    controller.setSelectionToPasteboardWithScript(name);
  EXPECT_THAT(ran, IsEmpty());
  EXPECT_EQ(general.changeCount(), before);
  EXPECT_THAT(desktop.clock.control.sleeps, IsEmpty());
  EXPECT_TRUE(isSelectionFiles());
}

TEST_F(ScriptCapture, OfOneFileIsItsPathAsTextAndAsAList) {
  const std::string path = "/docs/Größe 😀.txt";
  returnPaths({path});
  controller.setSelectionToPasteboardWithScript("Finder");
  EXPECT_THAT(selection.types(), ElementsAre("NSStringPboardType", "NSFilenamesPboardType"));
  EXPECT_THAT(selection.string(pasteboardType::string), Optional(path));
  EXPECT_THAT(capturedFiles(), Optional(ElementsAre(path)));
  expectTheClipboardUntouched();
}

TEST_F(ScriptCapture, OfThreeFilesIsAListAlone) {
  returnPaths({"/c", "/a", "/b"});
  controller.setSelectionToPasteboardWithScript("Path Finder");
  EXPECT_THAT(selection.types(), ElementsAre("NSFilenamesPboardType"));
  EXPECT_THAT(capturedFiles(), Optional(ElementsAre("/c", "/a", "/b")));
  expectTheClipboardUntouched();
}

TEST_F(ScriptCapture, OfNothingInTheFinderIsAnEmptyString) {
  capture({"/before"});
  returnPaths({});
  controller.setSelectionToPasteboardWithScript("Finder");
  EXPECT_THAT(selection.types(), ElementsAre("NSStringPboardType"));
  EXPECT_THAT(selection.string(pasteboardType::string), Optional(std::string()));
  expectTheClipboardUntouched();
}

TEST_F(ScriptCapture, WithoutAListIsWhatTheScriptLeftOnTheClipboard) {
  script = [this] {
    copyText("selected words")(general);
    return AppleEventDescriptor{0x6E756C6C, {}};
  };
  controller.setSelectionToPasteboardWithScript("TextEdit");
  EXPECT_THAT(selection.types(), ElementsAre("NSStringPboardType"));
  EXPECT_THAT(selection.string(pasteboardType::string), Optional(std::string("selected words")));
  expectTheClipboardUntouched();
}

TEST_F(ScriptCapture, OfAScriptThatFailsIsTheClearedClipboard) {
  capture({"/before"});
  controller.setSelectionToPasteboardWithScript("Finder");
  EXPECT_THAT(ran, ElementsAre("CopyFinderSelection"));
  EXPECT_THAT(selection.types(), ElementsAre("NSStringPboardType"));
  EXPECT_THAT(selection.string(pasteboardType::string), Optional(std::string()));
  expectTheClipboardUntouched();
}

TEST_F(ScriptCapture, AnOddByteIsDroppedFromAPath) {
  Bytes units = unitsOf("/a");
  units.push_back('x');
  script = [units] { return AppleEventDescriptor{typeAEList, {units, {'x'}}}; };
  controller.setSelectionToPasteboardWithScript("Finder");
  EXPECT_THAT(capturedFiles(), Optional(ElementsAre("/a", "")));
}

TEST_F(ScriptCapture, LeavesNothingOfTheClipboardInTheBackup) {
  controller.setSelectionToPasteboardWithScript("Finder");
  EXPECT_THAT(desktop.pasteboards.named("TVRBackupPboard").types(),
              ElementsAre("NSStringPboardType"));
}

TEST_F(ScriptCapture, TheScriptFindsAClearedClipboard) {
  std::vector<std::string> found;
  script = [&] {
    found = general.types();
    return std::nullopt;
  };
  controller.setSelectionToPasteboardWithScript("Finder");
  EXPECT_THAT(found, ElementsAre("NSStringPboardType"));
}

TEST_F(ScriptCapture, WaitsATenthOfASecondAfterTheRun) {
  std::size_t sleepsBefore = 1;
  script = [&] {
    sleepsBefore = desktop.clock.control.sleeps.size();
    return std::nullopt;
  };
  controller.setSelectionToPasteboardWithScript("Finder");
  EXPECT_EQ(sleepsBefore, 0U);
  EXPECT_THAT(desktop.clock.control.sleeps, ElementsAre(0.1));
}

TEST_F(ScriptCapture, WithoutItsScriptKeepsTheCaptureBefore) {
  capture({"/before"});
  desktop.bundle.control.resourcePaths.clear();
  const std::int64_t before = general.changeCount();
  controller.setSelectionToPasteboardWithScript("Finder");
  EXPECT_THAT(capturedFiles(), Optional(ElementsAre("/before")));
  EXPECT_THAT(desktop.clock.control.sleeps, IsEmpty());
  EXPECT_GT(general.changeCount(), before) << "the clipboard is saved and put back all the same";
  expectTheClipboardUntouched();
}

TEST_F(ScriptCapture, WithAScriptThatCannotBeReadKeepsTheCaptureBefore) {
  capture({"/before"});
  desktop.scripts.control.resultScripts.clear();
  controller.setSelectionToPasteboardWithScript("Finder");
  EXPECT_THAT(capturedFiles(), Optional(ElementsAre("/before")));
  expectTheClipboardUntouched();
}

} // namespace
} // namespace tavrel
