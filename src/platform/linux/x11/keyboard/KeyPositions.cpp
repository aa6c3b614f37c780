#include "platform/linux/x11/keyboard/KeyPositions.h"

#include <array>

namespace tavrel {

namespace {

// Row by row: home, bottom, top, digits, around them, modifiers, functions, block, keypad, others.
constexpr std::array<KeyPosition, 126> positions{{
    {"AC01", 0},   {"AC02", 1},   {"AC03", 2},   {"AC04", 3},   {"AC05", 5},   {"AC06", 4},
    {"AC07", 38},  {"AC08", 40},  {"AC09", 37},  {"AC10", 41},  {"AC11", 39},  {"AB01", 6},
    {"AB02", 7},   {"AB03", 8},   {"AB04", 9},   {"AB05", 11},  {"AB06", 45},  {"AB07", 46},
    {"AB08", 43},  {"AB09", 47},  {"AB10", 44},  {"AD01", 12},  {"AD02", 13},  {"AD03", 14},
    {"AD04", 15},  {"AD05", 17},  {"AD06", 16},  {"AD07", 32},  {"AD08", 34},  {"AD09", 31},
    {"AD10", 35},  {"AD11", 33},  {"AD12", 30},  {"AE01", 18},  {"AE02", 19},  {"AE03", 20},
    {"AE04", 21},  {"AE05", 23},  {"AE06", 22},  {"AE07", 26},  {"AE08", 28},  {"AE09", 25},
    {"AE10", 29},  {"AE11", 27},  {"AE12", 24},  {"TLDE", 50},  {"BKSL", 42},  {"AC12", 42},
    {"LSGT", 10},  {"RTRN", 36},  {"TAB", 48},   {"SPCE", 49},  {"BKSP", 51},  {"ESC", 53},
    {"LCTL", 55},  {"RCTL", 54},  {"LFSH", 56},  {"RTSH", 60},  {"CAPS", 57},  {"LALT", 58},
    {"RALT", 61},  {"LWIN", 59},  {"RWIN", 62},  {"FK01", 122}, {"FK02", 120}, {"FK03", 99},
    {"FK04", 118}, {"FK05", 96},  {"FK06", 97},  {"FK07", 98},  {"FK08", 100}, {"FK09", 101},
    {"FK10", 109}, {"FK11", 103}, {"FK12", 111}, {"FK13", 105}, {"FK14", 107}, {"FK15", 113},
    {"FK16", 106}, {"FK17", 64},  {"FK18", 79},  {"FK19", 80},  {"FK20", 90},  {"PRSC", 105},
    {"SCLK", 107}, {"PAUS", 113}, {"INS", 114},  {"HOME", 115}, {"PGUP", 116}, {"DELE", 117},
    {"END", 119},  {"PGDN", 121}, {"LEFT", 123}, {"RGHT", 124}, {"DOWN", 125}, {"UP", 126},
    {"KP0", 82},   {"KP1", 83},   {"KP2", 84},   {"KP3", 85},   {"KP4", 86},   {"KP5", 87},
    {"KP6", 88},   {"KP7", 89},   {"KP8", 91},   {"KP9", 92},   {"KPDL", 65},  {"KPEN", 76},
    {"KPAD", 69},  {"KPSU", 78},  {"KPMU", 67},  {"KPDV", 75},  {"KPEQ", 81},  {"NMLK", 71},
    {"AE13", 93},  {"AB11", 94},  {"JPCM", 95},  {"HNGL", 104}, {"HJCV", 102}, {"HENK", 104},
    {"MUHE", 102}, {"MUTE", 74},  {"VOL-", 73},  {"VOL+", 72},  {"COMP", 110}, {"MENU", 110},
}};

} // namespace

std::span<const KeyPosition> keyPositions() {
  return positions;
}

std::optional<std::uint16_t> virtualKeyCode(std::string_view xkbName) {
  for (const KeyPosition& position : positions)
    if (position.xkbName == xkbName)
      return position.keyCode;
  return std::nullopt;
}

} // namespace tavrel
