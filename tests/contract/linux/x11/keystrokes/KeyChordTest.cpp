#include "platform/linux/x11/keystrokes/KeyChord.h"

#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon.h>

#include <cstdlib>
#include <initializer_list>
#include <map>
#include <regex>
#include <utility>

namespace tavrel {
namespace {

constexpr std::uint8_t control = 37, shift = 50, c = 54, i = 31;

XkbKeymap layoutNamed(const char* layout, const char* variant = "", const char* options = "") {
  const std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> context(
      xkb_context_new(XKB_CONTEXT_NO_FLAGS), &xkb_context_unref);
  const xkb_rule_names names{"evdev", "pc105", layout, variant, options};
  return XkbKeymap(xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
}

std::vector<KeyboardEvent> copyWith(std::uint16_t keyOfC) {
  return {{0, 55, KeyDirection::down},
          {'c', keyOfC, KeyDirection::down},
          {'c', keyOfC, KeyDirection::up},
          {0, 55, KeyDirection::up}};
}

std::vector<std::uint8_t> pressed(const KeyChord& chord) {
  std::vector<std::uint8_t> keys;
  for (const ServerKey& key : chord.keys)
    if (key.direction == KeyDirection::down)
      keys.push_back(key.code);
  return keys;
}

using Keys = std::vector<std::uint8_t>;

TEST(KeyChord, CommandCIsControlC) {
  const XkbKeymap us = layoutNamed("us");
  const KeyChord chord = keyChord(copyWith(8), {*us});
  const std::vector<ServerKey> expected{{control, KeyDirection::down},
                                        {c, KeyDirection::down},
                                        {c, KeyDirection::up},
                                        {control, KeyDirection::up}};
  EXPECT_EQ(chord.keys, expected);
}

TEST(KeyChord, OnDvorakTheKeyThatTypesCIsInAnotherPlace) {
  const XkbKeymap dvorak = layoutNamed("us", "dvorak");
  EXPECT_EQ(pressed(keyChord(copyWith(34), {*dvorak})), (Keys{control, i}));
}

TEST(KeyChord, ACyrillicGroupIsLeftForTheOneThatTypesC) {
  const XkbKeymap both = layoutNamed("us,ru");
  const KeyChord chord = keyChord(copyWith(8), {*both, 1});
  EXPECT_EQ(chord.group, 0U);
  EXPECT_EQ(pressed(chord), (Keys{control, c}));
}

TEST(KeyChord, CapsLockDoesNotAddShiftToAShortcut) {
  const XkbKeymap us = layoutNamed("us");
  EXPECT_EQ(pressed(keyChord(copyWith(8), {*us, 0, CapsLock::on})), (Keys{control, c}));
}

/// Virtual key codes of the modifier keys, and the server's key (evdev) that each one presses.
using ModifierKeys = std::map<std::uint16_t, std::uint8_t>;

const ModifierKeys usualPlaces{{55, 37},   // Command: the left Ctrl key
                               {54, 105},  // its right-hand twin
                               {56, 50},   // Shift
                               {60, 62},   // the right one
                               {58, 64},   // Option: Alt
                               {61, 108},  // the right one
                               {59, 133},  // Control: Super
                               {62, 134}}; // the right one

void expectModifierKeys(xkb_keymap& layout, const ModifierKeys& expected) {
  for (const auto& [code, key] : expected) {
    EXPECT_TRUE(isModifierKey(code)) << code;
    EXPECT_EQ(pressed(keyChord({{0, code, KeyDirection::down}}, {layout})), Keys{key}) << code;
  }
}

TEST(KeyChord, EachModifierIsItsKey) {
  expectModifierKeys(*layoutNamed("us"), usualPlaces);
  for (const std::uint16_t code : std::initializer_list<std::uint16_t>{0, 8, 36, 57, 63})
    EXPECT_FALSE(isModifierKey(code)) << code;
}

TEST(KeyChord, AModifierThatALayoutPutsElsewhereIsFoundThere) {
  ModifierKeys altIsSuper = usualPlaces;
  std::swap(altIsSuper.at(58), altIsSuper.at(59));
  std::swap(altIsSuper.at(61), altIsSuper.at(62));
  expectModifierKeys(*layoutNamed("us", "", "altwin:swap_alt_win"), altIsSuper);
  ModifierKeys ctrlIsSuper = usualPlaces;
  std::swap(ctrlIsSuper.at(55), ctrlIsSuper.at(59));
  std::swap(ctrlIsSuper.at(54), ctrlIsSuper.at(62));
  expectModifierKeys(*layoutNamed("us", "", "ctrl:swap_lwin_lctl,ctrl:swap_rwin_rctl"),
                     ctrlIsSuper);
}

TEST(KeyChord, KeysThatAreLeftDownGoUp) {
  const XkbKeymap us = layoutNamed("us");
  const KeyChord chord = keyChord({{'c', 8, KeyDirection::down}}, {*us});
  const std::vector<ServerKey> expected{{c, KeyDirection::down}, {c, KeyDirection::up}};
  EXPECT_EQ(chord.keys, expected);
}

TEST(KeyChord, ACapitalTakesShift) {
  const XkbKeymap us = layoutNamed("us");
  EXPECT_EQ(pressed(keyChord({{'C', 8, KeyDirection::down}}, {*us})), (Keys{shift, c}));
}

TEST(KeyChord, ADigitOfAShortcutIsItsKeyAloneWhereDigitsNeedShift) {
  const XkbKeymap french = layoutNamed("fr");
  constexpr std::uint8_t one = 10;
  EXPECT_EQ(
      pressed(keyChord({{0, 55, KeyDirection::down}, {'1', 18, KeyDirection::down}}, {*french})),
      (Keys{control, one}));
  EXPECT_EQ(pressed(keyChord({{'1', 18, KeyDirection::down}}, {*french})), (Keys{shift, one}));
}

// The keypad types it without Shift.
TEST(KeyChord, ASlashIsTypedOnTheMainKeysAlsoWhereItNeedsShift) {
  for (const auto& [layout, key] : std::map<const char*, std::uint8_t>{{"fr", 60}, {"de", 16}}) {
    const XkbKeymap keymap = layoutNamed(layout);
    const std::vector<KeyboardEvent> chord{{0, 55, KeyDirection::down},
                                           {'/', 44, KeyDirection::down},
                                           {'/', 44, KeyDirection::up},
                                           {0, 55, KeyDirection::up}};
    EXPECT_EQ(pressed(keyChord(chord, {*keymap})), (Keys{control, shift, key})) << layout;
  }
}

// It was pressed as Ctrl and the key, whatever that takes to type the character.
TEST(KeyChord, AShortcutIsHandedOnWithItsOwnModifiersAlone) {
  struct Shortcut {
    const char* layout;
    char16_t character;
    std::uint16_t usPlace;
    std::uint8_t key;
  };
  for (const auto& [layout, character, usPlace, key] :
       {Shortcut{"de", '/', 44, 16}, Shortcut{"de", '[', 33, 17}, Shortcut{"fr", '.', 47, 59},
        Shortcut{"us", '/', 44, 61}}) {
    const XkbKeymap keymap = layoutNamed(layout);
    const std::vector<KeyboardEvent> chord{
        {0, 55, KeyDirection::down},
        {character, usPlace, KeyDirection::down, KeyPurpose::handedOn},
        {character, usPlace, KeyDirection::up, KeyPurpose::handedOn},
        {0, 55, KeyDirection::up}};
    EXPECT_EQ(pressed(keyChord(chord, {*keymap})), (Keys{control, key})) << layout;
  }
}

TEST(KeyChord, InsertIsTheKeyThatActsAsIt) {
  constexpr std::uint8_t insert = 118;
  const XkbKeymap us = layoutNamed("us");
  const KeyChord chord = keyChord({{insertCharacter, 114, KeyDirection::down}}, {*us});
  EXPECT_TRUE(chord.isWhole);
  EXPECT_EQ(pressed(chord), Keys{insert});
}

// Ctrl and what the user has put into its place could be a command.
TEST(KeyChord, AKeyboardWithoutInsertHasNotTheWholeChord) {
  const XkbKeymap us = layoutNamed("us");
  char* text = xkb_keymap_get_as_string(us.get(), XKB_KEYMAP_FORMAT_TEXT_V1);
  const std::string changed = std::regex_replace(text, std::regex(" Insert "), " Delete ");
  std::free(text);
  xkb_context* context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
  const XkbKeymap without(xkb_keymap_new_from_string(
      context, changed.c_str(), XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS));
  xkb_context_unref(context);
  EXPECT_FALSE(keyChord({{insertCharacter, 114, KeyDirection::down}}, {*without}).isWhole);
}

} // namespace
} // namespace tavrel
