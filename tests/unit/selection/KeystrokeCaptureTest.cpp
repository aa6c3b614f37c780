#include "invoke/AlertVolume.h"
#include "selection/PasteboardCopy.h"
#include "support/CoreTest.h"
#include "support/FrontSelection.h"

namespace tavrel {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Optional;
using ::testing::SizeIs;

class KeystrokeCapture : public ControllerTest {
protected:
  KeystrokeCapture() { beepLevel = 0; }

  void capture() {
    controller.setSelectionToPasteboard(desktop.accessibility.applicationElement(42));
  }

  std::string keys() { return keysAsText(desktop.accessibility.control.posted); }

  std::vector<std::string>& log = desktop.log.control.lines;
  std::vector<double>& sleeps = desktop.clock.control.sleeps;
  Pasteboard& general = desktop.pasteboards.general();
  Pasteboard& selection = privatePasteboard();
};

TEST_F(KeystrokeCapture, TakesEveryTypeThatTheApplicationCopied) {
  answerCopy(desktop, [](Pasteboard& pasteboard) {
    pasteboard.declareTypes({pasteboardType::rtf, pasteboardType::string, "of its own"});
    pasteboard.setData({7}, pasteboardType::rtf);
    pasteboard.setString("Words", pasteboardType::string);
  });
  capture();
  EXPECT_THAT(selection.types(),
              ElementsAre("NSRTFPboardType", "NSStringPboardType", "of its own"));
  EXPECT_THAT(selection.data(pasteboardType::rtf), Optional(Bytes{7}));
  EXPECT_THAT(selection.string(pasteboardType::string), Optional(std::string("Words")));
}

TEST_F(KeystrokeCapture, LeavesTheClipboardAsItWas) {
  general.declareTypes({"picture", "text", "promised"});
  general.setData({1, 2}, "picture");
  general.setString("mine", "text");
  answerCopy(desktop, copyText("selected"));
  capture();
  EXPECT_THAT(general.types(), ElementsAre("picture", "text", "promised"));
  EXPECT_THAT(general.data("picture"), Optional(Bytes{1, 2}));
  EXPECT_THAT(general.string("text"), Optional(std::string("mine")));
  EXPECT_EQ(general.data("promised"), std::nullopt);
}

TEST_F(KeystrokeCapture, LeavesATypelessClipboardTypeless) {
  answerCopy(desktop, copyText("selected"));
  capture();
  EXPECT_THAT(general.types(), ElementsAre());
  EXPECT_THAT(selection.string(pasteboardType::string), Optional(std::string("selected")));
}

TEST_F(KeystrokeCapture, IsAnEmptyTextWhenWhatWasCopiedCannotBeRead) {
  answerCopy(desktop, [](Pasteboard& pasteboard) { pasteboard.declareTypes({}); });
  capture();
  EXPECT_THAT(selection.types(), ElementsAre("NSStringPboardType"));
  EXPECT_THAT(selection.string(pasteboardType::string), Optional(std::string()));
}

TEST_F(KeystrokeCapture, NeverTakesWhatTheClipboardHeldBefore) {
  general.declareTypes({pasteboardType::filenames});
  general.setPropertyList(PropertyList::Array{"/old"}, pasteboardType::filenames);
  capture();
  EXPECT_THAT(selection.types(), ElementsAre("NSStringPboardType"));
}

TEST_F(KeystrokeCapture, ReplacesTheCaptureBefore) {
  CoreTest::capture({"/old"});
  answerCopy(desktop, copyText("new"));
  capture();
  EXPECT_FALSE(isSelectionFiles());
}

TEST_F(KeystrokeCapture, PressesCommandCAroundTheLetter) {
  answerCopy(desktop, copyText("selected"));
  capture();
  EXPECT_EQ(keys(), "55 down, 8 'c' down, 8 'c' up, 55 up");
  EXPECT_EQ(desktop.accessibility.control.posted.front().processIdentifier, 42);
}

TEST_F(KeystrokeCapture, PressesTheKeyThatTypesCInDvorak) {
  desktop.keyboard.control.layoutIdentifier = "com.apple.keylayout.Dvorak";
  answerCopy(desktop, copyText("selected"));
  capture();
  EXPECT_EQ(keys(), "55 down, 34 'c' down, 34 'c' up, 55 up");
}

TEST_F(KeystrokeCapture, PressesTheUsualKeyInAVariantOfDvorak) {
  desktop.keyboard.control.layoutIdentifier = "com.apple.keylayout.Dvorak-Left";
  answerCopy(desktop, copyText("selected"));
  capture();
  EXPECT_EQ(keys(), "55 down, 8 'c' down, 8 'c' up, 55 up");
}

TEST_F(KeystrokeCapture, OfNothingIsAnEmptyStringAfterTenPresses) {
  capture();
  EXPECT_THAT(selection.types(), ElementsAre("NSStringPboardType"));
  EXPECT_THAT(selection.string(pasteboardType::string), Optional(std::string()));
  EXPECT_THAT(desktop.accessibility.control.posted, SizeIs(40));
  EXPECT_THAT(sleeps, SizeIs(10));
  EXPECT_THAT(sleeps, Each(0.01));
}

TEST_F(KeystrokeCapture, OfNothingWritesTenLinesAndTheOutcome) {
  capture();
  EXPECT_THAT(log, ElementsAre("retry = 0 changeCount=0 ", "retry = 1 changeCount=0 ",
                               "retry = 2 changeCount=0 ", "retry = 3 changeCount=0 ",
                               "retry = 4 changeCount=0 ", "retry = 5 changeCount=0 ",
                               "retry = 6 changeCount=0 ", "retry = 7 changeCount=0 ",
                               "retry = 8 changeCount=0 ", "retry = 9 changeCount=0 ",
                               "types=(\n    NSStringPboardType\n)  "
                               "contents(NSStringPboardType)=[] \nchangeCount=0"));
}

TEST_F(KeystrokeCapture, StopsWithThePressThatIsAnswered) {
  answerCopy(desktop, copyText("late"), 3);
  capture();
  EXPECT_THAT(desktop.accessibility.control.posted, SizeIs(12));
  EXPECT_THAT(sleeps, ElementsAre(0.01, 0.01, 0.01));
  EXPECT_THAT(log, ElementsAre("retry = 0 changeCount=0 ", "retry = 1 changeCount=0 ",
                               "retry = 2 changeCount=1 ",
                               "types=(\n    NSStringPboardType\n)  "
                               "contents(NSStringPboardType)=[late] \nchangeCount=1"));
}

TEST_F(KeystrokeCapture, TakesTheAnswerToTheLastPress) {
  answerCopy(desktop, copyText("at last"), 10);
  capture();
  EXPECT_THAT(selection.string(pasteboardType::string), Optional(std::string("at last")));
  EXPECT_EQ(log.at(9), "retry = 9 changeCount=1 ");
}

TEST_F(KeystrokeCapture, CountsEveryChangeThatOnePressMade) {
  answerCopy(desktop, [](Pasteboard& pasteboard) {
    clearPasteboard(pasteboard);
    copyFiles({"/docs/a.txt"})(pasteboard);
  });
  capture();
  EXPECT_EQ(log.front(), "retry = 0 changeCount=2 ");
}

TEST_F(KeystrokeCapture, TellsOfASelectionWithoutText) {
  answerCopy(desktop, copyFiles({"/docs/a.txt"}));
  capture();
  EXPECT_EQ(log.back(), "types=(\n    NSFilenamesPboardType\n)  "
                        "contents(NSStringPboardType)=[(null)] \nchangeCount=1");
}

TEST_F(KeystrokeCapture, OfAPasswordIsTakenButNotWrittenIntoTheLog) {
  answerCopy(desktop, copyPassword("hunter2"));
  capture();
  EXPECT_THAT(selection.string(pasteboardType::string), Optional(std::string("hunter2")));
  EXPECT_EQ(log.back(), "types=(\n    \"org.nspasteboard.ConcealedType\",\n    "
                        "NSStringPboardType\n)  "
                        "contents(NSStringPboardType)=[concealed] \nchangeCount=1");
}

TEST_F(KeystrokeCapture, OfWordsIsWrittenIntoTheLogWhateverTheClipboardConceals) {
  copyPassword("hunter2")(general);
  answerCopy(desktop, copyText("words"));
  capture();
  EXPECT_THAT(log.back(), ::testing::HasSubstr("=[words] "));
}

TEST_F(KeystrokeCapture, LeavesNothingOfTheClipboardInTheBackup) {
  copyText("mine")(general);
  capture();
  EXPECT_THAT(general.string(pasteboardType::string), Optional(std::string("mine")));
  Pasteboard& backup = desktop.pasteboards.named(TVRBackupPboard);
  EXPECT_THAT(backup.string(pasteboardType::string), Optional(std::string()));
}

TEST_F(KeystrokeCapture, TheBeepIsSilentFromTheFirstKeyToTheLast) {
  desktop.sounds.control.alertVolume = 70;
  std::vector<std::int32_t> heard;
  desktop.accessibility.control.onPost = [&](const auto&) {
    heard.push_back(desktop.sounds.control.alertVolume);
  };
  capture();
  EXPECT_THAT(heard, SizeIs(40));
  EXPECT_THAT(heard, Each(0));
  EXPECT_THAT(desktop.sounds.control.alertVolumes, ElementsAre(0, 70));
}

TEST_F(KeystrokeCapture, AnApplicationThatIsNotThereLosesTheKeys) {
  controller.setSelectionToPasteboard(nullptr);
  EXPECT_THAT(selection.types(), ElementsAre("NSStringPboardType"));
}

} // namespace
} // namespace tavrel
