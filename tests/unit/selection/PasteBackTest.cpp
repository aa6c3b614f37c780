#include "selection/PasteBack.h"
#include "selection/PasteboardCopy.h"
#include "support/CoreTest.h"
#include "support/FrontSelection.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::Optional;
using ::testing::SizeIs;

class PasteBack : public CoreTest {
protected:
  PasteBack() { copyText("result")(privatePasteboard()); }

  void paste() { setPasteboardToSelection(desktop.accessibility.applicationElement(42)); }

  std::string keys() { return keysAsText(desktop.accessibility.control.posted); }

  Pasteboard& general = desktop.pasteboards.general();
};

TEST_F(PasteBack, TheApplicationFindsTheSelectionOnTheClipboard) {
  std::vector<std::string> found;
  desktop.accessibility.control.onPost = [&](const auto&) {
    found.push_back(general.string(pasteboardType::string).value_or("nothing"));
  };
  paste();
  EXPECT_THAT(found, ElementsAre("result", "result", "result", "result"));
}

TEST_F(PasteBack, PressesCommandVOnce) {
  paste();
  EXPECT_EQ(keys(), "55 down, 9 'v' down, 9 'v' up, 55 up");
  EXPECT_EQ(desktop.accessibility.control.posted.front().processIdentifier, 42);
}

TEST_F(PasteBack, PressesTheKeyThatTypesVInDvorak) {
  desktop.keyboard.control.layoutIdentifier = "com.apple.keylayout.Dvorak";
  paste();
  EXPECT_EQ(keys(), "55 down, 47 'v' down, 47 'v' up, 55 up");
}

TEST_F(PasteBack, TheClipboardIsAfterwardsAsItWas) {
  general.declareTypes({"b", "a"});
  general.setData({3}, "a");
  paste();
  EXPECT_THAT(general.types(), ElementsAre("b", "a"));
  EXPECT_THAT(general.data("a"), Optional(Bytes{3}));
  EXPECT_EQ(general.data("b"), std::nullopt);
}

TEST_F(PasteBack, LeavesNothingOfTheClipboardInTheBackup) {
  copyText("mine")(general);
  paste();
  Pasteboard& backup = desktop.pasteboards.named(TVRBackupPboard);
  EXPECT_THAT(backup.types(), ElementsAre("NSStringPboardType"));
  EXPECT_THAT(backup.string(pasteboardType::string), Optional(std::string()));
}

TEST_F(PasteBack, TheApplicationHasAFifthOfASecond) {
  paste();
  EXPECT_THAT(desktop.clock.control.sleeps, ElementsAre(0.2));
}

TEST_F(PasteBack, LeavesTheSelectionAndTheBeepAlone) {
  desktop.sounds.control.alertVolume = 70;
  paste();
  EXPECT_THAT(privatePasteboard().string(pasteboardType::string), Optional(std::string("result")));
  EXPECT_THAT(desktop.sounds.control.alertVolumes, SizeIs(0));
}

} // namespace
} // namespace tavrel
