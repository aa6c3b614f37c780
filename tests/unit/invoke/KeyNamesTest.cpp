#include "support/CoreTest.h"

#include "invoke/KeyNames.h"

#include <string>

namespace tavrel {
namespace {

class KeyNames : public CoreTest {
protected:
  void useDvorak() { desktop.keyboard.control.layoutIdentifier = "com.apple.keylayout.Dvorak"; }
};

// The rows of a keyboard from left to right, by key code.
const std::vector<std::vector<int>> rowCodes{
    {50, 18, 19, 20, 21, 23, 22, 26, 28, 25, 29, 27, 24},
    {12, 13, 14, 15, 17, 16, 32, 34, 31, 35, 33, 30, 42},
    {0, 1, 2, 3, 5, 4, 38, 40, 37, 41, 39},
    {6, 7, 8, 9, 11, 45, 46, 43, 47, 44},
};
const std::vector<std::string> usRows{"`1234567890-=", "qwertyuiop[]\\", "asdfghjkl;'",
                                      "zxcvbnm,./"};
const std::vector<std::string> dvorakRows{"`1234567890[]", "',.pyfgcrl/=\\", "aoeuidhtns-",
                                          ";qjkxbmwvz"};

void expectRows(const std::vector<std::string>& rows) {
  for (std::size_t row = 0; row < rows.size(); ++row)
    for (std::size_t key = 0; key < rows[row].size(); ++key)
      EXPECT_EQ(keyCodeForKeyString(std::string(1, rows[row][key]).c_str()), rowCodes[row][key])
          << rows[row][key];
}

TEST_F(KeyNames, EveryCharacterSitsWhereTheUsLayoutHasIt) {
  expectRows(usRows);
}

TEST_F(KeyNames, EveryCharacterSitsWhereDvorakHasIt) {
  useDvorak();
  expectRows(dvorakRows);
}

TEST_F(KeyNames, NamedKeysAreTheSameInBothLayouts) {
  const std::vector<std::pair<const char*, int>> names{
      {"RETURN", 36}, {"TAB", 48},   {"SPACE", 49}, {"DELETE", 51}, {"ENTER", 52}, {"ESCAPE", 53},
      {"*", 67},      {"+", 69},     {"CLEAR", 71}, {"F5", 96},     {"F6", 97},    {"F7", 98},
      {"F3", 99},     {"F8", 100},   {"F9", 101},   {"F11", 103},   {"F13", 105},  {"F14", 107},
      {"F10", 109},   {"F12", 111},  {"F15", 113},  {"HELP", 114},  {"HOME", 115}, {"PGUP", 116},
      {"F4", 118},    {"END", 119},  {"F2", 120},   {"PGDN", 121},  {"F1", 122},   {"LEFT", 123},
      {"RIGHT", 124}, {"DOWN", 125}, {"UP", 126}};
  for (const auto& [name, code] : names) {
    EXPECT_EQ(keyCodeForKeyString(name), code) << name;
    EXPECT_EQ(keyCodeForDvorak(name), code) << name;
  }
}

TEST_F(KeyNames, CaseCounts) {
  EXPECT_EQ(keyCodeForKeyString("UP"), 126);
  EXPECT_EQ(keyCodeForKeyString("up"), -1);
  EXPECT_EQ(keyCodeForKeyString("A"), -1);
  EXPECT_EQ(keyCodeForKeyString("a"), 0);
}

TEST_F(KeyNames, OnlyDvorakItselfMovesTheKeys) {
  EXPECT_EQ(keyCodeForKeyString("c"), 8);
  useDvorak();
  EXPECT_EQ(keyCodeForKeyString("c"), 34);
  EXPECT_EQ(keyCodeForKeyString("i"), 5);
  for (const char* other : {"com.apple.keylayout.DVORAK-QWERTYCMD", "com.apple.keylayout.dvorak",
                            "com.apple.keylayout.Dvorak-Left", ""}) {
    desktop.keyboard.control.layoutIdentifier = other;
    EXPECT_FALSE(isDvorak()) << other;
    EXPECT_EQ(keyCodeForKeyString("c"), 8) << other;
  }
}

TEST_F(KeyNames, TheBackslashIsTheSameKeyInBothAndNothingHasNoKey) {
  EXPECT_EQ(keyCodeForKeyString("\\"), 42);
  EXPECT_EQ(keyCodeForDvorak("\\"), 42);
  EXPECT_EQ(keyCodeForKeyString(""), -1);
  EXPECT_EQ(keyCodeForDvorak(""), -1);
}

} // namespace
} // namespace tavrel
