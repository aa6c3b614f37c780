#include "invoke/KeyNames.h"

#include "platform/Keyboard.h"
#include "platform/Platform.h"

#include <array>
#include <string_view>

namespace tavrel {

namespace {

// A key and the name or character it has in either layout.
struct KeyName {
  int keyCode;
  std::string_view us;
  std::string_view dvorak;
};

// By ascending key code. The extra key of ISO keyboards (10) has no name, and "*" and "+" are
// the keypad's, on purpose.
constexpr auto keyNames = std::to_array<KeyName>({
    {0, "a", "a"},
    {1, "s", "o"},
    {2, "d", "e"},
    {3, "f", "u"},
    {4, "h", "d"},
    {5, "g", "i"},
    {6, "z", ";"},
    {7, "x", "q"},
    {8, "c", "j"},
    {9, "v", "k"},
    {11, "b", "x"},
    {12, "q", "'"},
    {13, "w", ","},
    {14, "e", "."},
    {15, "r", "p"},
    {16, "y", "f"},
    {17, "t", "y"},
    {18, "1", "1"},
    {19, "2", "2"},
    {20, "3", "3"},
    {21, "4", "4"},
    {22, "6", "6"},
    {23, "5", "5"},
    {24, "=", "]"},
    {25, "9", "9"},
    {26, "7", "7"},
    {27, "-", "["},
    {28, "8", "8"},
    {29, "0", "0"},
    {30, "]", "="},
    {31, "o", "r"},
    {32, "u", "g"},
    {33, "[", "/"},
    {34, "i", "c"},
    {35, "p", "l"},
    {36, "RETURN", "RETURN"},
    {37, "l", "n"},
    {38, "j", "h"},
    {39, "'", "-"},
    {40, "k", "t"},
    {41, ";", "s"},
    {42, "\\", "\\"},
    {43, ",", "w"},
    {44, "/", "z"},
    {45, "n", "b"},
    {46, "m", "m"},
    {47, ".", "v"},
    {48, "TAB", "TAB"},
    {49, "SPACE", "SPACE"},
    {50, "`", "`"},
    {51, "DELETE", "DELETE"},
    {52, "ENTER", "ENTER"},
    {53, "ESCAPE", "ESCAPE"},
    {67, "*", "*"},
    {69, "+", "+"},
    {71, "CLEAR", "CLEAR"},
    {96, "F5", "F5"},
    {97, "F6", "F6"},
    {98, "F7", "F7"},
    {99, "F3", "F3"},
    {100, "F8", "F8"},
    {101, "F9", "F9"},
    {103, "F11", "F11"},
    {105, "F13", "F13"},
    {107, "F14", "F14"},
    {109, "F10", "F10"},
    {111, "F12", "F12"},
    {113, "F15", "F15"},
    {114, "HELP", "HELP"},
    {115, "HOME", "HOME"},
    {116, "PGUP", "PGUP"},
    {118, "F4", "F4"},
    {119, "END", "END"},
    {120, "F2", "F2"},
    {121, "PGDN", "PGDN"},
    {122, "F1", "F1"},
    {123, "LEFT", "LEFT"},
    {124, "RIGHT", "RIGHT"},
    {125, "DOWN", "DOWN"},
    {126, "UP", "UP"},
});

using Column = std::string_view KeyName::*;

int keyCodeIn(Column column, std::string_view name) {
  for (const KeyName& key : keyNames)
    if (key.*column == name)
      return key.keyCode;
  return -1;
}

} // namespace

bool isDvorak() {
  return platform().keyboard.layoutIdentifier() == "com.apple.keylayout.Dvorak";
}

int keyCodeForKeyString(const char* name) {
  return isDvorak() ? keyCodeForDvorak(name) : keyCodeIn(&KeyName::us, name);
}

int keyCodeForDvorak(const char* name) {
  return keyCodeIn(&KeyName::dvorak, name);
}

} // namespace tavrel
