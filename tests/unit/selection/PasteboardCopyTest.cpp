#include "selection/PasteboardCopy.h"
#include "support/CoreTest.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;

class PasteboardCopy : public CoreTest {
protected:
  PasteboardCopy() {
    source.declareTypes({"b", "a", "promised"});
    source.setData({1, 0, 2}, "a");
    source.setData({}, "b");
  }

  Pasteboard& source = desktop.pasteboards.named("source");
  Pasteboard& destination = desktop.pasteboards.named("destination");
  Pasteboard& general = desktop.pasteboards.general();
};

TEST_F(PasteboardCopy, KeepsTheTypesTheirOrderAndTheirData) {
  copyPasteboard(source, destination);
  EXPECT_THAT(destination.types(), ElementsAre("b", "a", "promised"));
  EXPECT_THAT(destination.data("a"), Optional(Bytes{1, 0, 2}));
  EXPECT_THAT(destination.data("b"), Optional(IsEmpty()));
  EXPECT_EQ(destination.data("promised"), std::nullopt);
}

TEST_F(PasteboardCopy, LeavesNothingOfWhatWasThere) {
  destination.declareTypes({"old"});
  destination.setString("gone", "old");
  copyPasteboard(source, destination);
  EXPECT_EQ(destination.data("old"), std::nullopt);
}

TEST_F(PasteboardCopy, OfATypelessPasteboardIsTypeless) {
  source.declareTypes({});
  copyPasteboard(source, destination);
  EXPECT_THAT(destination.types(), IsEmpty());
  EXPECT_EQ(destination.data(pasteboardType::string), std::nullopt);
}

TEST_F(PasteboardCopy, MovesTheChangeCountOfTheDestinationAlone) {
  const std::int64_t before = source.changeCount();
  const std::int64_t destinationBefore = destination.changeCount();
  copyPasteboard(source, destination);
  EXPECT_EQ(source.changeCount(), before);
  EXPECT_GT(destination.changeCount(), destinationBefore);
}

TEST_F(PasteboardCopy, AClearedPasteboardHoldsAnEmptyString) {
  clearPasteboard(source);
  EXPECT_THAT(source.types(), ElementsAre("NSStringPboardType"));
  EXPECT_THAT(source.string(pasteboardType::string), Optional(std::string()));
}

TEST_F(PasteboardCopy, ABackupBringsTheClipboardBack) {
  copyPasteboard(source, general);
  backUpGeneralPasteboard();
  clearPasteboard(general);
  restoreGeneralPasteboard();
  EXPECT_THAT(general.types(), ElementsAre("b", "a", "promised"));
  EXPECT_THAT(general.data("a"), Optional(Bytes{1, 0, 2}));
}

TEST_F(PasteboardCopy, TheSelectionGoesToTheClipboardWithTheTypesItHas) {
  general.declareTypes({"old"});
  copyPasteboard(source, privatePasteboard());
  copyPrivateToGeneralPasteboard();
  EXPECT_THAT(general.types(), ElementsAre("b", "a", "promised"));
  EXPECT_THAT(general.data("a"), Optional(Bytes{1, 0, 2}));
  EXPECT_EQ(general.data("promised"), std::nullopt);
}

TEST_F(PasteboardCopy, TheSelectionGoesToTheClipboardWithoutABackup) {
  const std::int64_t before = general.changeCount();
  Pasteboard& backup = desktop.pasteboards.named(TVRBackupPboard);
  const std::int64_t backupBefore = backup.changeCount();
  copyPrivateToGeneralPasteboard();
  EXPECT_EQ(general.changeCount(), before + 1) << "it is not cleared first";
  EXPECT_EQ(backup.changeCount(), backupBefore);
}

} // namespace
} // namespace tavrel
