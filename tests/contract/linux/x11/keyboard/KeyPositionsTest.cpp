#include "platform/linux/x11/keyboard/KeyPositions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string_view>
#include <vector>

namespace tavrel {
namespace {

/// The virtual key codes as the platform publishes them: each is named after the key that an ANSI
/// (or, where it says so, ISO or JIS) keyboard has in the place.
constexpr std::uint16_t kVK_ANSI_A = 0x00, kVK_ANSI_S = 0x01, kVK_ANSI_D = 0x02, kVK_ANSI_F = 0x03,
                        kVK_ANSI_H = 0x04, kVK_ANSI_G = 0x05, kVK_ANSI_Z = 0x06, kVK_ANSI_X = 0x07,
                        kVK_ANSI_C = 0x08, kVK_ANSI_V = 0x09, kVK_ANSI_B = 0x0B, kVK_ANSI_Q = 0x0C,
                        kVK_ANSI_W = 0x0D, kVK_ANSI_E = 0x0E, kVK_ANSI_R = 0x0F, kVK_ANSI_Y = 0x10,
                        kVK_ANSI_T = 0x11, kVK_ANSI_1 = 0x12, kVK_ANSI_2 = 0x13, kVK_ANSI_3 = 0x14,
                        kVK_ANSI_4 = 0x15, kVK_ANSI_6 = 0x16, kVK_ANSI_5 = 0x17,
                        kVK_ANSI_Equal = 0x18, kVK_ANSI_9 = 0x19, kVK_ANSI_7 = 0x1A,
                        kVK_ANSI_Minus = 0x1B, kVK_ANSI_8 = 0x1C, kVK_ANSI_0 = 0x1D,
                        kVK_ANSI_RightBracket = 0x1E, kVK_ANSI_O = 0x1F, kVK_ANSI_U = 0x20,
                        kVK_ANSI_LeftBracket = 0x21, kVK_ANSI_I = 0x22, kVK_ANSI_P = 0x23,
                        kVK_ANSI_L = 0x25, kVK_ANSI_J = 0x26, kVK_ANSI_Quote = 0x27,
                        kVK_ANSI_K = 0x28, kVK_ANSI_Semicolon = 0x29, kVK_ANSI_Backslash = 0x2A,
                        kVK_ANSI_Comma = 0x2B, kVK_ANSI_Slash = 0x2C, kVK_ANSI_N = 0x2D,
                        kVK_ANSI_M = 0x2E, kVK_ANSI_Period = 0x2F, kVK_ANSI_Grave = 0x32,
                        kVK_ANSI_KeypadDecimal = 0x41, kVK_ANSI_KeypadMultiply = 0x43,
                        kVK_ANSI_KeypadPlus = 0x45, kVK_ANSI_KeypadClear = 0x47,
                        kVK_ANSI_KeypadDivide = 0x4B, kVK_ANSI_KeypadEnter = 0x4C,
                        kVK_ANSI_KeypadMinus = 0x4E, kVK_ANSI_KeypadEquals = 0x51,
                        kVK_ANSI_Keypad0 = 0x52, kVK_ANSI_Keypad1 = 0x53, kVK_ANSI_Keypad2 = 0x54,
                        kVK_ANSI_Keypad3 = 0x55, kVK_ANSI_Keypad4 = 0x56, kVK_ANSI_Keypad5 = 0x57,
                        kVK_ANSI_Keypad6 = 0x58, kVK_ANSI_Keypad7 = 0x59, kVK_ANSI_Keypad8 = 0x5B,
                        kVK_ANSI_Keypad9 = 0x5C;
constexpr std::uint16_t kVK_Return = 0x24, kVK_Tab = 0x30, kVK_Space = 0x31, kVK_Delete = 0x33,
                        kVK_Escape = 0x35, kVK_RightCommand = 0x36, kVK_Command = 0x37,
                        kVK_Shift = 0x38, kVK_CapsLock = 0x39, kVK_Option = 0x3A,
                        kVK_Control = 0x3B, kVK_RightShift = 0x3C, kVK_RightOption = 0x3D,
                        kVK_RightControl = 0x3E, kVK_F17 = 0x40, kVK_VolumeUp = 0x48,
                        kVK_VolumeDown = 0x49, kVK_Mute = 0x4A, kVK_F18 = 0x4F, kVK_F19 = 0x50,
                        kVK_F20 = 0x5A, kVK_F5 = 0x60, kVK_F6 = 0x61, kVK_F7 = 0x62, kVK_F3 = 0x63,
                        kVK_F8 = 0x64, kVK_F9 = 0x65, kVK_F11 = 0x67, kVK_F13 = 0x69,
                        kVK_F16 = 0x6A, kVK_F14 = 0x6B, kVK_F10 = 0x6D, kVK_ContextualMenu = 0x6E,
                        kVK_F12 = 0x6F, kVK_F15 = 0x71, kVK_Help = 0x72, kVK_Home = 0x73,
                        kVK_PageUp = 0x74, kVK_ForwardDelete = 0x75, kVK_F4 = 0x76, kVK_End = 0x77,
                        kVK_F2 = 0x78, kVK_PageDown = 0x79, kVK_F1 = 0x7A, kVK_LeftArrow = 0x7B,
                        kVK_RightArrow = 0x7C, kVK_DownArrow = 0x7D, kVK_UpArrow = 0x7E;
constexpr std::uint16_t kVK_ISO_Section = 0x0A, kVK_JIS_Yen = 0x5D, kVK_JIS_Underscore = 0x5E,
                        kVK_JIS_KeypadComma = 0x5F, kVK_JIS_Eisu = 0x66, kVK_JIS_Kana = 0x68;

/// The same places by the names of XKB, row by row.
const std::map<std::string_view, std::uint16_t> published{{"AE01", kVK_ANSI_1},
                                                          {"AE02", kVK_ANSI_2},
                                                          {"AE03", kVK_ANSI_3},
                                                          {"AE04", kVK_ANSI_4},
                                                          {"AE05", kVK_ANSI_5},
                                                          {"AE06", kVK_ANSI_6},
                                                          {"AE07", kVK_ANSI_7},
                                                          {"AE08", kVK_ANSI_8},
                                                          {"AE09", kVK_ANSI_9},
                                                          {"AE10", kVK_ANSI_0},
                                                          {"AE11", kVK_ANSI_Minus},
                                                          {"AE12", kVK_ANSI_Equal},
                                                          {"AD01", kVK_ANSI_Q},
                                                          {"AD02", kVK_ANSI_W},
                                                          {"AD03", kVK_ANSI_E},
                                                          {"AD04", kVK_ANSI_R},
                                                          {"AD05", kVK_ANSI_T},
                                                          {"AD06", kVK_ANSI_Y},
                                                          {"AD07", kVK_ANSI_U},
                                                          {"AD08", kVK_ANSI_I},
                                                          {"AD09", kVK_ANSI_O},
                                                          {"AD10", kVK_ANSI_P},
                                                          {"AD11", kVK_ANSI_LeftBracket},
                                                          {"AD12", kVK_ANSI_RightBracket},
                                                          {"AC01", kVK_ANSI_A},
                                                          {"AC02", kVK_ANSI_S},
                                                          {"AC03", kVK_ANSI_D},
                                                          {"AC04", kVK_ANSI_F},
                                                          {"AC05", kVK_ANSI_G},
                                                          {"AC06", kVK_ANSI_H},
                                                          {"AC07", kVK_ANSI_J},
                                                          {"AC08", kVK_ANSI_K},
                                                          {"AC09", kVK_ANSI_L},
                                                          {"AC10", kVK_ANSI_Semicolon},
                                                          {"AC11", kVK_ANSI_Quote},
                                                          {"AB01", kVK_ANSI_Z},
                                                          {"AB02", kVK_ANSI_X},
                                                          {"AB03", kVK_ANSI_C},
                                                          {"AB04", kVK_ANSI_V},
                                                          {"AB05", kVK_ANSI_B},
                                                          {"AB06", kVK_ANSI_N},
                                                          {"AB07", kVK_ANSI_M},
                                                          {"AB08", kVK_ANSI_Comma},
                                                          {"AB09", kVK_ANSI_Period},
                                                          {"AB10", kVK_ANSI_Slash},
                                                          {"TLDE", kVK_ANSI_Grave},
                                                          {"BKSL", kVK_ANSI_Backslash},
                                                          {"AC12", kVK_ANSI_Backslash},
                                                          {"RTRN", kVK_Return},
                                                          {"TAB", kVK_Tab},
                                                          {"SPCE", kVK_Space},
                                                          {"BKSP", kVK_Delete},
                                                          {"ESC", kVK_Escape},
                                                          {"CAPS", kVK_CapsLock},
                                                          {"LFSH", kVK_Shift},
                                                          {"RTSH", kVK_RightShift},
                                                          {"LALT", kVK_Option},
                                                          {"RALT", kVK_RightOption},
                                                          {"LCTL", kVK_Command},
                                                          {"RCTL", kVK_RightCommand},
                                                          {"LWIN", kVK_Control},
                                                          {"RWIN", kVK_RightControl},
                                                          {"FK01", kVK_F1},
                                                          {"FK02", kVK_F2},
                                                          {"FK03", kVK_F3},
                                                          {"FK04", kVK_F4},
                                                          {"FK05", kVK_F5},
                                                          {"FK06", kVK_F6},
                                                          {"FK07", kVK_F7},
                                                          {"FK08", kVK_F8},
                                                          {"FK09", kVK_F9},
                                                          {"FK10", kVK_F10},
                                                          {"FK11", kVK_F11},
                                                          {"FK12", kVK_F12},
                                                          {"FK13", kVK_F13},
                                                          {"FK14", kVK_F14},
                                                          {"FK15", kVK_F15},
                                                          {"FK16", kVK_F16},
                                                          {"FK17", kVK_F17},
                                                          {"FK18", kVK_F18},
                                                          {"FK19", kVK_F19},
                                                          {"FK20", kVK_F20},
                                                          {"PRSC", kVK_F13},
                                                          {"SCLK", kVK_F14},
                                                          {"PAUS", kVK_F15},
                                                          {"INS", kVK_Help},
                                                          {"HOME", kVK_Home},
                                                          {"PGUP", kVK_PageUp},
                                                          {"DELE", kVK_ForwardDelete},
                                                          {"END", kVK_End},
                                                          {"PGDN", kVK_PageDown},
                                                          {"LEFT", kVK_LeftArrow},
                                                          {"RGHT", kVK_RightArrow},
                                                          {"DOWN", kVK_DownArrow},
                                                          {"UP", kVK_UpArrow},
                                                          {"KP0", kVK_ANSI_Keypad0},
                                                          {"KP1", kVK_ANSI_Keypad1},
                                                          {"KP2", kVK_ANSI_Keypad2},
                                                          {"KP3", kVK_ANSI_Keypad3},
                                                          {"KP4", kVK_ANSI_Keypad4},
                                                          {"KP5", kVK_ANSI_Keypad5},
                                                          {"KP6", kVK_ANSI_Keypad6},
                                                          {"KP7", kVK_ANSI_Keypad7},
                                                          {"KP8", kVK_ANSI_Keypad8},
                                                          {"KP9", kVK_ANSI_Keypad9},
                                                          {"KPDL", kVK_ANSI_KeypadDecimal},
                                                          {"KPEN", kVK_ANSI_KeypadEnter},
                                                          {"KPAD", kVK_ANSI_KeypadPlus},
                                                          {"KPSU", kVK_ANSI_KeypadMinus},
                                                          {"KPMU", kVK_ANSI_KeypadMultiply},
                                                          {"KPDV", kVK_ANSI_KeypadDivide},
                                                          {"KPEQ", kVK_ANSI_KeypadEquals},
                                                          {"NMLK", kVK_ANSI_KeypadClear},
                                                          {"LSGT", kVK_ISO_Section},
                                                          {"AE13", kVK_JIS_Yen},
                                                          {"AB11", kVK_JIS_Underscore},
                                                          {"JPCM", kVK_JIS_KeypadComma},
                                                          {"HNGL", kVK_JIS_Kana},
                                                          {"HJCV", kVK_JIS_Eisu},
                                                          {"HENK", kVK_JIS_Kana},
                                                          {"MUHE", kVK_JIS_Eisu},
                                                          {"MUTE", kVK_Mute},
                                                          {"VOL-", kVK_VolumeDown},
                                                          {"VOL+", kVK_VolumeUp},
                                                          {"COMP", kVK_ContextualMenu},
                                                          {"MENU", kVK_ContextualMenu}};

/// Codes that two places share.
const std::set<std::uint16_t> shared{
    kVK_ANSI_Backslash, // ISO keyboards have this key in the home row (AC12)
    kVK_F13,
    kVK_F14,
    kVK_F15, // Print, Scroll Lock and Pause stand where a long row has these
    kVK_JIS_Kana,
    kVK_JIS_Eisu,        // Korean and Japanese keyboards name these keys differently
    kVK_ContextualMenu}; // the menu key has two names in XKB

TEST(KeyPositions, EachPlaceHasTheCodeThatIsPublishedForIt) {
  for (const KeyPosition& position : keyPositions()) {
    const auto found = published.find(position.xkbName);
    ASSERT_NE(found, published.end()) << position.xkbName;
    EXPECT_EQ(position.keyCode, found->second) << position.xkbName;
    EXPECT_EQ(virtualKeyCode(position.xkbName), position.keyCode) << position.xkbName;
  }
  EXPECT_EQ(keyPositions().size(), published.size()) << "none is left out";
}

TEST(KeyPositions, EachPlaceIsListedOnce) {
  std::set<std::string_view> names;
  for (const KeyPosition& position : keyPositions())
    EXPECT_TRUE(names.insert(position.xkbName).second) << position.xkbName;
}

TEST(KeyPositions, OnlyTheCodesListedHereAreSharedByTwoPlaces) {
  std::map<std::uint16_t, std::vector<std::string_view>> places;
  for (const KeyPosition& position : keyPositions())
    places[position.keyCode].push_back(position.xkbName);
  for (const auto& [code, names] : places)
    EXPECT_EQ(names.size(), shared.contains(code) ? 2U : 1U)
        << "code " << code << " in " << ::testing::PrintToString(names);
}

TEST(KeyPositions, APlaceThatNoCodeNamesHasNone) {
  for (const char* name : {"", "AC13", "FK21", "LVL3", "a"})
    EXPECT_FALSE(virtualKeyCode(name)) << name;
}

} // namespace
} // namespace tavrel
