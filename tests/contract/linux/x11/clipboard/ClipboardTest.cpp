#include "contract/linux/x11/clipboard/ClipboardFixture.h"

namespace tavrel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

using ClipboardTest = ClipboardFixture;

std::vector<OwnedTarget> editorsText(const std::string& text) {
  return {plain("UTF8_STRING", text),
          plain("text/plain;charset=utf-8", text),
          {"TEXT", textProperty("UTF8_STRING", text)},
          plain("STRING", text)};
}

TEST_F(ClipboardTest, TextOfAnotherProgramIsAStringAndEveryTargetInItsOrder) {
  const SelectionOwner editor(editorsText("Grüße"));
  EXPECT_THAT(general.types(),
              ElementsAre(pasteboardType::string, "x11:UTF8_STRING", "x11:text/plain;charset=utf-8",
                          "x11:TEXT;type=UTF8_STRING;format=8", "x11:STRING"));
  EXPECT_EQ(general.string(pasteboardType::string), "Grüße");
}

TEST_F(ClipboardTest, AfterACaptureTargetsTypesAndBytesAreAsBefore) {
  const std::vector<OwnedTarget> targets{plain("text/html", "<b>x</b>"),
                                         plain("image/png", std::string("\x89PNG\0\xFF", 6)),
                                         {"COLORS", {"INTEGER", 32, {1, 2, 3, 4, 5, 6, 7, 8}}},
                                         {"SHORTS", {"SHORTS", 16, {1, 2, 3, 4}}},
                                         plain("EMPTY", ""),
                                         plain("odd;type=x;format=8", "odd"),
                                         {"UTF8_STRING", textProperty("STRING", "wrong type")}};
  const SelectionOwner first(targets);
  save();
  SelectionOwner application(editorsText("selected"));
  ASSERT_TRUE(waitFor([&] { return general.string(pasteboardType::string) == "selected"; }));
  capture();
  restore();
  EXPECT_EQ(captured.string(pasteboardType::string), "selected");
  EXPECT_THAT(paster.targets(), ElementsAre("text/html", "image/png", "COLORS", "SHORTS", "EMPTY",
                                            "odd;type=x;format=8", "UTF8_STRING"));
  for (const OwnedTarget& each : targets)
    EXPECT_TRUE(paster.paste(each.name) == each.property) << each.name;
}

TEST_F(ClipboardTest, WhatComesInPiecesKeepsTheTypeItBeganWith) {
  const Property colors{"INTEGER", 32, {1, 2, 3, 4, 5, 6, 7, 8}};
  const SelectionOwner painter({{"COLORS", colors, Manner::endsOddly}});
  save();
  afterCopy([&] { const SelectionOwner application(editorsText("selected")); });
  restore();
  EXPECT_EQ(paster.paste("COLORS"), colors);
}

TEST_F(ClipboardTest, WhenNothingIsCopiedTheOwnerKeepsTheClipboard) {
  const SelectionOwner editor(editorsText("kept"));
  captureNothing();
  EXPECT_EQ(captured.string(pasteboardType::string), "");
  EXPECT_THAT(captured.types(), ElementsAre(pasteboardType::string));
  EXPECT_TRUE(editor.isOwner());
  EXPECT_EQ(general.string(pasteboardType::string), "kept");
}

// As a script does that asks a file manager in the middle of a capture.
TEST_F(ClipboardTest, ClearedAgainAndAgainTheClipboardIsStillItsOwners) {
  const SelectionOwner editor(editorsText("kept"));
  save();
  (void)general.types();
  clear(general);
  (void)general.types();
  clear(general);
  capture();
  restore();
  EXPECT_TRUE(editor.isOwner());
  EXPECT_EQ(captured.string(pasteboardType::string), "");
}

TEST_F(ClipboardTest, AnEmptyClipboardIsEmptyAfterwards) {
  for (const bool copies : {false, true}) {
    save();
    std::optional<SelectionOwner> application;
    if (copies)
      afterCopy([&] { application.emplace(editorsText("selected")); });
    capture();
    restore();
    EXPECT_EQ(paster.owner(), 0U);
    EXPECT_THAT(general.types(), IsEmpty());
  }
}

TEST_F(ClipboardTest, ASecondCaptureOverRestoredContentsChangesNothing) {
  const SelectionOwner first(editorsText("first"));
  for (int i = 0; i < 3; ++i) {
    save();
    afterCopy([&] { const SelectionOwner application(editorsText("selected")); });
    restore();
    captureNothing();
    EXPECT_EQ(paster.paste("STRING"), textProperty("STRING", "first"));
    EXPECT_THAT(paster.targets(),
                ElementsAre("UTF8_STRING", "text/plain;charset=utf-8", "TEXT", "STRING"));
  }
}

TEST_F(ClipboardTest, EveryCopyCountsAlsoByTheSameOwner) {
  SelectionOwner editor(editorsText("a"));
  afterCopy([&] { editor.own(); });
  afterCopy([&] { editor.own(); });
  save();
  const auto before = general.changeCount();
  EXPECT_EQ(general.changeCount(), before) << "reading and waiting do not count";
  afterCopy([&] { editor.own(); });
}

TEST_F(ClipboardTest, TheEndOfTheOwnerCounts) {
  std::optional<SelectionOwner> editor(editorsText("a"));
  EXPECT_EQ(general.string(pasteboardType::string), "a");
  afterCopy([&] { editor.reset(); });
  EXPECT_THAT(general.types(), IsEmpty());
}

TEST_F(ClipboardTest, ContentsWhoseOwnerEndsDuringTheCaptureComeBack) {
  std::optional<SelectionOwner> editor(editorsText("kept"));
  save();
  afterCopy([&] { editor.reset(); });
  restore();
  EXPECT_EQ(paster.paste("UTF8_STRING"), textProperty("UTF8_STRING", "kept"));
}

TEST_F(ClipboardTest, FiftyMegabytesComeAndGoInPieces) {
  std::string text(50'000'000, 'x');
  for (std::size_t i = 0; i < text.size(); i += 4096)
    text[i] = static_cast<char>('a' + i / 4096 % 26);
  const SelectionOwner editor({plain("image/x-large", text, Manner::inPieces)});
  save();
  afterCopy([&] { const SelectionOwner application(editorsText("selected")); });
  restore();
  EXPECT_TRUE(paster.paste("image/x-large") == textProperty("image/x-large", text));
}

TEST_F(ClipboardTest, AThousandTargetsKeepTheirOrder) {
  std::vector<OwnedTarget> targets;
  std::vector<std::string> names;
  for (int i = 0; i < 1000; ++i) {
    names.push_back("application/x-" + std::to_string(i));
    targets.push_back(plain(names.back(), names.back()));
  }
  const SelectionOwner editor(targets);
  save();
  afterCopy([&] { const SelectionOwner application(editorsText("selected")); });
  restore();
  EXPECT_EQ(paster.targets(), names);
  EXPECT_EQ(paster.paste("application/x-999"), plain("application/x-999", names.back()).property);
}

TEST_F(ClipboardTest, FilesOfAFileManagerAreAListOfPaths) {
  const SelectionOwner manager(
      {plain("x-special/gnome-copied-files", "copy\nfile:///a%20b\nfile:///c"),
       plain("text/uri-list", "file:///a%20b\r\nfile:///c\r\n")});
  EXPECT_THAT(general.types(), Contains(pasteboardType::filenames));
  EXPECT_THAT(general.types(), Not(Contains(pasteboardType::url)));
  EXPECT_TRUE(general.propertyList(pasteboardType::filenames) ==
              PropertyList(PropertyList::Array{"/a b", "/c"}));
}

TEST_F(ClipboardTest, ALinkIsAUrl) {
  const SelectionOwner browser({plain("text/uri-list", "https://a.example/x\r\n")});
  EXPECT_EQ(general.string(pasteboardType::url), "https://a.example/x");
  EXPECT_THAT(general.types(), Not(Contains(pasteboardType::filenames)));
}

TEST_F(ClipboardTest, HtmlAndTextAreUtf8WhateverTheirEncoding) {
  const SelectionOwner browser(
      {plain("text/html", std::string("\xFF\xFE<\0\xFC\0", 6)), plain("STRING", "Gr\xFC\xDF"
                                                                                "e")});
  EXPECT_EQ(general.string(pasteboardType::html), "<ü");
  EXPECT_EQ(general.string(pasteboardType::string), "Grüße");
}

TEST_F(ClipboardTest, AnImageIsAnImageInTheFormatItCameIn) {
  const SelectionOwner painter({plain("image/bmp", "BM"), plain("image/png", "\x89PNG")});
  EXPECT_EQ(general.string(pasteboardType::tiff), "\x89PNG");
}

TEST_F(ClipboardTest, AStringOfOursIsPastedByOtherPrograms) {
  general.declareTypes({pasteboardType::string});
  general.setString("Grüße", pasteboardType::string);
  EXPECT_EQ(output("xclip", {"-o", "-selection", "clipboard"}), "Grüße");
  EXPECT_EQ(paster.paste("STRING"), textProperty("STRING", "Gr\xFC\xDF"
                                                           "e"));
  EXPECT_EQ(paster.paste("TEXT"), textProperty("UTF8_STRING", "Grüße"));
}

TEST_F(ClipboardTest, FilesOfOursArePastedByFileManagers) {
  general.declareTypes({pasteboardType::filenames});
  general.setPropertyList(PropertyList::Array{"/a b", "/c"}, pasteboardType::filenames);
  EXPECT_THAT(paster.targets(), ElementsAre("x-special/gnome-copied-files", "text/uri-list"));
  EXPECT_EQ(paster.paste("x-special/gnome-copied-files"),
            textProperty("x-special/gnome-copied-files", "copy\nfile:///a%20b\nfile:///c"));
  EXPECT_EQ(paster.paste("text/uri-list"),
            textProperty("text/uri-list", "file:///a%20b\r\nfile:///c\r\n"));
}

TEST_F(ClipboardTest, AnEmptySelectionPastesAnEmptyString) {
  const SelectionOwner editor(editorsText("the user's"));
  clear(captured);
  copy(general, backup);
  copy(captured, general);
  EXPECT_EQ(paster.paste("UTF8_STRING"), textProperty("UTF8_STRING", ""));
  restore();
  EXPECT_EQ(paster.paste("UTF8_STRING"), textProperty("UTF8_STRING", "the user's"));
}

TEST_F(ClipboardTest, AnEmptySelectionPutThereToStayEmptiesTheClipboard) {
  const SelectionOwner editor(editorsText("the user's"));
  general.declareTypes({pasteboardType::string});
  general.setData({}, pasteboardType::string);
  EXPECT_EQ(paster.paste("UTF8_STRING"), textProperty("UTF8_STRING", ""));
  captureNothing();
  EXPECT_EQ(paster.paste("UTF8_STRING"), textProperty("UTF8_STRING", ""));
}

TEST_F(ClipboardTest, AnEmptyTextThatTheClipboardHeldIsThereAgainAfterACopy) {
  general.declareTypes({pasteboardType::string});
  general.setData({}, pasteboardType::string);
  save();
  afterCopy([&] { const SelectionOwner application(editorsText("selected")); });
  restore();
  EXPECT_THAT(paster.targets(), Contains("UTF8_STRING"));
  EXPECT_EQ(paster.paste("UTF8_STRING"), textProperty("UTF8_STRING", ""));
}

// Only the bytes differ from what the owner offers.
TEST_F(ClipboardTest, ASelectionWithTheTargetsOfTheClipboardIsPastedAllTheSame) {
  SelectionOwner editor(editorsText("selected"));
  copy(general, captured);
  afterCopy([&] { editor.copy(editorsText("the user's")); });
  copy(general, backup);
  copy(captured, general);
  EXPECT_EQ(paster.paste("STRING"), textProperty("STRING", "selected"));
  restore();
  EXPECT_EQ(paster.paste("STRING"), textProperty("STRING", "the user's"));
}

TEST_F(ClipboardTest, ARequestBeforeTheDataIsSetIsAnsweredWhenItIs) {
  general.declareTypes({"x11:early", "x11:late"});
  general.setData({1}, "x11:early");
  std::optional<Property> pasted;
  std::thread other([&] { pasted = paster.paste("late"); });
  ::poll(nullptr, 0, 20);
  general.setData({2}, "x11:late");
  other.join();
  EXPECT_EQ(pasted, (Property{"late", 8, {2}}));
}

TEST_F(ClipboardTest, ARequestForDataThatIsNeverSetIsRefusedAfterATimeout) {
  general.declareTypes({"x11:early", "x11:late"});
  general.setData({1}, "x11:early");
  EXPECT_LT(timeOf([&] { EXPECT_FALSE(paster.paste("late")); }), std::chrono::seconds(2));
  EXPECT_TRUE(paster.paste("early"));
}

TEST_F(ClipboardTest, TheTargetsOfAPasswordManagerSayThatTheyAreConcealed) {
  const SelectionOwner manager(
      {plain("UTF8_STRING", "password"), plain("x-kde-passwordManagerHint", "secret")});
  EXPECT_THAT(general.types(), Contains(pasteboardType::concealed));
}

TEST_F(ClipboardTest, AHintThatPermitsKeepingConcealsNothing) {
  const SelectionOwner manager(
      {plain("UTF8_STRING", "word"), plain("x-kde-passwordManagerHint", "public")});
  EXPECT_THAT(general.types(), Not(Contains(pasteboardType::concealed)));
}

} // namespace
} // namespace tavrel
