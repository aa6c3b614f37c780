#include "support/CoreTest.h"

#include "invoke/KeycodeTable.h"

namespace tavrel {
namespace {

class KeycodeTable : public CoreTest {
protected:
  KeycodeTable() {
    CharacterTable plain{};
    CharacterTable shifted{};
    plain[0] = 'a';
    plain[8] = 'x';
    plain[7] = 'x';
    shifted[0] = 'A';
    shifted[3] = 'x';
    shifted[4] = 'a';
    desktop.keyboard.control.tables = CharacterTables{7, "Test", {plain, shifted}};
    desktop.keyboard.control.layoutId = 7;
  }
  Ascii2KeyCodeTable table;
};

TEST_F(KeycodeTable, TheLowestKeyOfTheFirstTableThatTypesACharacterWins) {
  EXPECT_EQ(InitAscii2KeyCodeTable(table), 0);
  EXPECT_EQ(AsciiToKeyCode(table, 'x'), 7);
  EXPECT_EQ(AsciiToKeyCode(table, 'a'), 0);
  EXPECT_EQ(AsciiToKeyCode(table, 'A'), 0);
}

TEST_F(KeycodeTable, ACharacterThatNoKeyTypesHasNone) {
  EXPECT_EQ(InitAscii2KeyCodeTable(table), 0);
  EXPECT_EQ(AsciiToKeyCode(table, 'q'), -1);
}

TEST_F(KeycodeTable, ACharacterAbove255AnswersTheKeyOfA) {
  EXPECT_EQ(InitAscii2KeyCodeTable(table), 0);
  EXPECT_EQ(AsciiToKeyCode(table, 300), 0);
}

TEST_F(KeycodeTable, AMissingLayoutLeavesNoCharacter) {
  EXPECT_EQ(InitAscii2KeyCodeTable(table), 0);
  desktop.keyboard.control.tables.reset();
  desktop.keyboard.control.layoutId = 9;
  EXPECT_EQ(InitAscii2KeyCodeTable(table), -192);
  for (std::uint16_t character = 0; character < 256; ++character)
    EXPECT_EQ(AsciiToKeyCode(table, character), -1);
  EXPECT_EQ(table.layoutId, 9);
  EXPECT_EQ(GetKchrName(table), "Test") << "the name is left as it was";
}

TEST_F(KeycodeTable, CharacterZeroHasItsFirstKeyToo) {
  EXPECT_EQ(InitAscii2KeyCodeTable(table), 0);
  EXPECT_EQ(AsciiToKeyCode(table, 0), 1);
}

TEST_F(KeycodeTable, ItKeepsTheNameOfTheLayout) {
  EXPECT_EQ(InitAscii2KeyCodeTable(table), 0);
  EXPECT_EQ(GetKchrName(table), "Test");
  desktop.keyboard.control.tables->layoutName = std::string(300, 'n');
  EXPECT_EQ(InitAscii2KeyCodeTable(table), 0);
  EXPECT_EQ(GetKchrName(table), std::string(255, 'n'));
}

TEST_F(KeycodeTable, ValidatingRebuildsOnlyAfterALayoutChange) {
  EXPECT_EQ(InitAscii2KeyCodeTable(table), 0);
  bool rebuilt = true;
  EXPECT_EQ(ValidateAscii2KeyCodeTable(table, rebuilt), 0);
  EXPECT_FALSE(rebuilt);
  desktop.keyboard.control.layoutId = 8;
  desktop.keyboard.control.tables->tables[0][7] = 'q';
  EXPECT_EQ(ValidateAscii2KeyCodeTable(table, rebuilt), 0);
  EXPECT_TRUE(rebuilt);
  EXPECT_EQ(AsciiToKeyCode(table, 'q'), 7);
  EXPECT_EQ(table.layoutId, 8);
}

TEST_F(KeycodeTable, AKeyTypesItsLowCharacterOrElseItsHighOne) {
  desktop.keyboard.control.translations = {{0, 'a'}, {1, 0x00620000}, {2, 0x00620061}};
  EXPECT_EQ(KeyCodeToAscii(0), 'a');
  EXPECT_EQ(KeyCodeToAscii(1), 'b');
  EXPECT_EQ(KeyCodeToAscii(2), 'a');
  EXPECT_EQ(KeyCodeToAscii(3), 0);
}

TEST_F(KeycodeTable, LaunchFillsTheProcessWideTable) {
  RecordedEvents base;
  TVApplication application(base);
  TVController(application).applicationWillFinishLaunching();
  EXPECT_EQ(AsciiToKeyCode(gKeycodeTable, 'x'), 7);
}

TEST_F(KeycodeTable, TheProcessWideTableStaysThatOfTheLayoutAtLaunch) {
  RecordedEvents base;
  TVApplication application(base);
  TVController controller(application);
  controller.applicationWillFinishLaunching();
  desktop.keyboard.control.layoutId = 8;
  desktop.keyboard.control.tables->tables[0][7] = 'q';
  controller.createStatusMenu();
  controller.menuNeedsUpdate(ControllerState(controller).statusMenu);
  EXPECT_EQ(AsciiToKeyCode(gKeycodeTable, 'x'), 7);
  EXPECT_EQ(AsciiToKeyCode(gKeycodeTable, 'q'), -1);
  EXPECT_EQ(gKeycodeTable.layoutId, 7);
}

} // namespace
} // namespace tavrel
