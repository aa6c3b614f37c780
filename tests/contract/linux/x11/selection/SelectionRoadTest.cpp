#include "platform/linux/x11/selection/SelectionRoad.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

ProgramEvidence ordinary() {
  ProgramEvidence evidence;
  evidence.toolkit = Toolkit::common;
  return evidence;
}

ProgramEvidence ofCategory(const char* category) {
  ProgramEvidence evidence = ordinary();
  evidence.categories = {"Utility", category};
  return evidence;
}

bool getsNoKey(const ProgramEvidence& evidence) {
  return selectionRoad(evidence).copy == CopyRoad::primary;
}
bool getsNoPaste(const ProgramEvidence& evidence) {
  return selectionRoad(evidence).paste == PasteRoad::none;
}

TEST(SelectionRoad, AnOrdinaryProgramCopiesAndPastesByTheInsertKey) {
  const SelectionRoad road = selectionRoad(ordinary());
  EXPECT_EQ(road.copy, CopyRoad::controlInsert);
  EXPECT_EQ(road.paste, PasteRoad::shiftInsert);
}

TEST(SelectionRoad, ListsOfFilesAndPicturesKnowCtrlCAlone) {
  for (const char* category : {"FileManager", "Graphics"}) {
    const SelectionRoad road = selectionRoad(ofCategory(category));
    EXPECT_EQ(road.copy, CopyRoad::controlC) << category;
    EXPECT_EQ(road.paste, PasteRoad::controlV) << category;
  }
}

TEST(SelectionRoad, AFileManagerIsKnownByItsRoleToo) {
  ProgramEvidence evidence = ordinary();
  evidence.isFileManager = true;
  EXPECT_EQ(selectionRoad(evidence).copy, CopyRoad::controlC);
}

TEST(SelectionRoad, WhatIsTypedForAnotherMachineOrAGameStaysUntyped) {
  for (const char* category : {"RemoteAccess", "Emulator", "Game"}) {
    EXPECT_TRUE(getsNoKey(ofCategory(category))) << category;
    EXPECT_TRUE(getsNoPaste(ofCategory(category))) << category;
  }
}

TEST(SelectionRoad, ATerminalGetsNoCopyKeyAndItsOwnPasteKey) {
  ProgramEvidence terminal = ordinary();
  terminal.terminal = TerminalKind::withPasteKey;
  EXPECT_TRUE(getsNoKey(terminal));
  EXPECT_EQ(selectionRoad(terminal).paste, PasteRoad::controlShiftV);
  terminal.terminal = TerminalKind::bare;
  EXPECT_TRUE(getsNoKey(terminal) && getsNoPaste(terminal));
}

TEST(SelectionRoad, AnUnknownToolkitGetsNoKey) {
  EXPECT_TRUE(getsNoKey({}) && getsNoPaste({}));
}

TEST(SelectionRoad, AnExceptionOfTheUserGetsNoKey) {
  ProgramEvidence evidence = ordinary();
  evidence.isExcepted = true;
  EXPECT_TRUE(getsNoKey(evidence) && getsNoPaste(evidence));
}

TEST(SelectionRoad, EmacsYanksAndViEditorsGetNothing) {
  ProgramEvidence editor = ordinary();
  editor.windowClass = "Emacs";
  EXPECT_TRUE(getsNoKey(editor));
  EXPECT_EQ(selectionRoad(editor).paste, PasteRoad::shiftInsert);
  for (const char* windowClass : {"Gvim", "neovide", "nvim-qt"}) {
    editor.windowClass = windowClass;
    EXPECT_TRUE(getsNoKey(editor) && getsNoPaste(editor)) << windowClass;
  }
}

TEST(SelectionRoad, OnlyATextOrAListOfAProgramWithATerminalGetsAKey) {
  constexpr std::uint32_t text = 61, listItem = 32, terminal = 60, drawingArea = 18, pane = 53;
  ProgramEvidence evidence = ordinary();
  evidence.handsKeysOn = true;
  EXPECT_TRUE(getsNoKey(evidence)) << "nobody tells what has the keyboard";
  for (const auto& roles : {std::vector{text}, {listItem}, {pane, text}}) {
    evidence.focusedRoles = roles;
    EXPECT_EQ(selectionRoad(evidence).copy, CopyRoad::controlInsert);
  }
  for (const auto& roles : {std::vector{terminal}, {drawingArea}, {pane}, {listItem, terminal}}) {
    evidence.focusedRoles = roles;
    EXPECT_TRUE(getsNoKey(evidence) && getsNoPaste(evidence));
  }
}

TEST(SelectionRoad, AFileManagerWithATerminalNeverGetsAKeyThatInterrupts) {
  constexpr std::uint32_t listItem = 32;
  ProgramEvidence evidence = ofCategory("FileManager");
  evidence.handsKeysOn = true;
  evidence.focusedRoles = {listItem};
  EXPECT_EQ(selectionRoad(evidence).copy, CopyRoad::controlInsert);
}

TEST(SelectionRoad, ProgramsThatCopyInAnotherProcessGetMoreTime) {
  ProgramEvidence evidence = ordinary();
  const auto usual = selectionRoad(evidence).settle;
  evidence.toolkit = Toolkit::office;
  EXPECT_GT(selectionRoad(evidence).settle, usual);
  evidence.toolkit = Toolkit::multiProcess;
  EXPECT_GT(selectionRoad(evidence).settle, usual);
}

} // namespace
} // namespace tavrel
