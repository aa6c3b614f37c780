#include "contract/linux/x11/clipboard/ClipboardFixture.h"

namespace tavrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto oneBoundedWait = std::chrono::milliseconds(1000); // 300 and what a busy machine adds

// Programs that own the clipboard and do not hand it over.
class HostileClipboardTest : public ClipboardFixture {
protected:
  /// Nothing was copied meanwhile, and the owner still has what it did not hand over.
  void expectKept(SelectionOwner& owner) {
    EXPECT_LT(timeOf([&] { captureNothing(); }), oneBoundedWait);
    EXPECT_EQ(captured.string(pasteboardType::string), "");
    EXPECT_TRUE(owner.isOwner());
  }
  void expectReadablePartBack() {
    EXPECT_LT(timeOf([&] { save(); }), oneBoundedWait);
    afterCopy([&] { application.emplace(std::vector{plain("UTF8_STRING", "selected")}); });
    capture();
    restore();
    EXPECT_EQ(captured.string(pasteboardType::string), "selected");
    EXPECT_THAT(paster.targets(), ElementsAre("UTF8_STRING"));
    EXPECT_EQ(paster.paste("UTF8_STRING"), textProperty("UTF8_STRING", "readable"));
  }
  std::vector<OwnedTarget> with(Manner manner) {
    return {plain("UTF8_STRING", "readable"), plain("image/png", large, manner),
            plain("image/bmp", large, manner)};
  }

  const std::string large = std::string(300'000, 'x');
  std::optional<SelectionOwner> application;
};

TEST_F(HostileClipboardTest, AnOwnerThatNeverAnswersCostsOneTimeoutAndKeepsTheClipboard) {
  SelectionOwner owner({plain("UTF8_STRING", "hidden")}, Manner::never);
  expectKept(owner);
}

TEST_F(HostileClipboardTest, AnOwnerThatAnswersAgainIsReadAgain) {
  SelectionOwner owner(with(Manner::never));
  expectKept(owner);
  owner.copy({plain("UTF8_STRING", "readable")});
  ASSERT_TRUE(waitFor([&] { return general.types().size() == 2; }));
  EXPECT_EQ(general.string(pasteboardType::string), "readable");
}

TEST_F(HostileClipboardTest, ATargetThatNeverComesCostsOneTimeoutAndTheOwnerKeepsTheClipboard) {
  SelectionOwner owner(with(Manner::never));
  expectKept(owner);
}

TEST_F(HostileClipboardTest, AnOwnerThatStopsMidwayKeepsTheClipboard) {
  SelectionOwner owner(with(Manner::stopsMidway));
  expectKept(owner);
}

TEST_F(HostileClipboardTest, OnceACopyWasMadeWhatCouldBeReadComesBack) {
  const SelectionOwner owner(with(Manner::stopsMidway));
  expectReadablePartBack();
}

TEST_F(HostileClipboardTest, AnOwnerThatDiesMidwayLeavesWhatItHadHandedOver) {
  std::optional<SelectionOwner> owner(with(Manner::diesMidway));
  expectReadablePartBack();
}

TEST_F(HostileClipboardTest, AfterACopyNothingComesBackFromAnOwnerThatGaveNothing) {
  const SelectionOwner owner({plain("UTF8_STRING", "hidden")}, Manner::never);
  save();
  afterCopy([&] { application.emplace(std::vector{plain("UTF8_STRING", "selected")}); });
  capture();
  restore();
  EXPECT_THAT(general.types(), IsEmpty());
}

TEST_F(HostileClipboardTest, ACapturedSelectionDoesNotStayWhenThereIsNothingToRestore) {
  const SelectionOwner owner({plain("UTF8_STRING", "hidden", Manner::never)});
  save();
  afterCopy([&] { application.emplace(std::vector{plain("UTF8_STRING", "selected")}); });
  capture();
  restore();
  EXPECT_EQ(captured.string(pasteboardType::string), "selected");
  EXPECT_EQ(paster.owner(), 0U);
}

TEST_F(HostileClipboardTest, AnOwnerThatRefusesAllItListsIsRestoredAsSuch) {
  const SelectionOwner owner({plain("image/png", "", Manner::refuses)});
  save();
  afterCopy([&] { application.emplace(std::vector{plain("UTF8_STRING", "selected")}); });
  restore();
  EXPECT_THAT(paster.targets(), ElementsAre("image/png"));
  EXPECT_FALSE(paster.paste("image/png"));
  EXPECT_FALSE(paster.paste("UTF8_STRING"));
}

TEST_F(HostileClipboardTest, AnAnnouncedLengthIsNotBelieved) {
  const SelectionOwner owner({plain("UTF8_STRING", "short", Manner::announcesTooMuch),
                              plain("image/png", large, Manner::inPieces)});
  EXPECT_EQ(general.string(pasteboardType::string), "short");
  EXPECT_EQ(general.string("x11:image/png"), large);
}

TEST_F(HostileClipboardTest, ARefusedTargetIsListedAndRefusedAfterwards) {
  const SelectionOwner owner(
      {plain("image/png", "", Manner::refuses), plain("UTF8_STRING", "readable")});
  save();
  afterCopy([&] { application.emplace(std::vector{plain("UTF8_STRING", "selected")}); });
  restore();
  EXPECT_THAT(paster.targets(), ElementsAre("image/png", "UTF8_STRING"));
  EXPECT_FALSE(paster.paste("image/png"));
  EXPECT_EQ(paster.paste("UTF8_STRING"), textProperty("UTF8_STRING", "readable"));
}

TEST_F(HostileClipboardTest, ATargetListOfTheWrongFormatOffersNothing) {
  SelectionOwner owner({plain("TARGETS", "none")});
  owner.copy({});
  EXPECT_THAT(general.types(), IsEmpty());
}

TEST_F(HostileClipboardTest, WhatIsCopiedWhileTheClipboardIsReadIsReadInstead) {
  SelectionOwner owner(
      {plain("UTF8_STRING", "old"), plain("image/png", "old", Manner::copiesAgain)});
  owner.next = {plain("UTF8_STRING", "new")};
  EXPECT_THAT(general.types(), ElementsAre(pasteboardType::string, "x11:UTF8_STRING"));
  EXPECT_EQ(general.string(pasteboardType::string), "new");
}

TEST_F(HostileClipboardTest, AnswersThatComeTooLateDoNotMixWithLaterOnes) {
  SelectionOwner owner(with(Manner::stopsMidway));
  (void)general.types();
  owner.copy({plain("image/png", "whole")});
  ASSERT_TRUE(waitFor([&] { return general.types().size() == 2; }));
  EXPECT_EQ(general.string("x11:image/png"), "whole");
}

TEST_F(HostileClipboardTest, MoreThanTheByteLimitIsLeftWithItsOwnerAndLoggedOnce) {
  const std::string half(150'000'000, 'x');
  SelectionOwner owner({plain("UTF8_STRING", "readable"),
                        plain("image/png", half, Manner::inPieces),
                        plain("image/bmp", half, Manner::inPieces)});
  ::testing::internal::CaptureStderr();
  captureNothing();
  const std::string said = ::testing::internal::GetCapturedStderr();
  EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
  EXPECT_TRUE(owner.isOwner());
}

TEST_F(HostileClipboardTest, AProgramThatPastesAndDisappearsDisturbsNoOther) {
  general.declareTypes({"x11:image/png"});
  general.setString(std::string(3'000'000, 'x'), "x11:image/png");
  {
    SelectionClient leaver;
    xcb_convert_selection(leaver.server, leaver.window, leaver.atom("CLIPBOARD"),
                          leaver.atom("image/png"), leaver.atom("PASTED"), XCB_CURRENT_TIME);
    leaver.sync();
  }
  EXPECT_EQ(paster.paste("image/png")->bytes.size(), 3'000'000U);
}

// The server ends while the clipboard is in use.
TEST_F(HostileClipboardTest, WhenTheServerEndsTheClipboardIsEmptyAndNothingHangs) {
  QProcess server;
  server.start("Xvfb", {"-displayfd", "1", "-nolisten", "tcp"});
  ASSERT_TRUE(server.waitForReadyRead(20000));
  const std::string display = std::getenv("DISPLAY");
  ::setenv("DISPLAY", (":" + server.readAllStandardOutput().trimmed()).constData(), 1);
  LinuxPasteboards other;
  ::setenv("DISPLAY", display.c_str(), 1);
  other.general().declareTypes({pasteboardType::string});
  other.general().setString("text", pasteboardType::string);
  server.kill();
  ASSERT_TRUE(server.waitForFinished(20000));
  EXPECT_LT(timeOf([&] {
              copy(other.general(), other.named("backup"));
              clear(other.general());
              copy(other.named("backup"), other.general());
            }),
            std::chrono::seconds(2));
}

} // namespace
} // namespace tavrel
