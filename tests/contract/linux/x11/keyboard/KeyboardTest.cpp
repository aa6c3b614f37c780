#include "contract/KeyboardContract.h"

#include "platform/linux/x11/keyboard/LinuxKeyboard.h"
#include "platform/linux/x11/keyboard/XkbLayout.h"

#include <QProcess>

#define explicit explicitActions // a member of the C header bears the name
#include <xcb/xkb.h>
#undef explicit

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <ostream>
#include <string>

namespace tavrel {
namespace {

void run(const std::string& command) {
  ASSERT_EQ(std::system(command.c_str()), 0) << command;
}

// What a user's group switch does; key events of xdotool put the group back.
void lockGroup(std::uint8_t group) {
  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  std::free(
      xcb_xkb_use_extension_reply(connection, xcb_xkb_use_extension(connection, 1, 0), nullptr));
  std::free(xcb_request_check(connection,
                              xcb_xkb_latch_lock_state_checked(connection, XCB_XKB_ID_USE_CORE_KBD,
                                                               0, 0, 1, group, 0, 0, 0)));
  xcb_disconnect(connection);
}

// Real key events and real layout changes on the private display.
struct LinuxWorld {
  LinuxKeyboard adapter;
  LinuxWorld() { use("us"); }
  ~LinuxWorld() { use("us"); }
  Keyboard& keyboard() { return adapter; }
  void use(const std::string& layout) {
    run("setxkbmap -option ''");
    run(layout == "dvorak" ? "setxkbmap us -variant dvorak" : "setxkbmap " + layout);
  }
  void press(std::uint16_t key) { run("xdotool keydown " + nameOf(key)); }
  void release(std::uint16_t key) { run("xdotool keyup " + nameOf(key)); }

private:
  static std::string nameOf(std::uint16_t key) {
    const std::map<std::uint16_t, std::string> names{{0, "a"},
                                                     {keyCode::option, "Alt_L"},
                                                     {keyCode::command, "Control_L"},
                                                     {keyCode::control, "Super_L"},
                                                     {keyCode::shift, "Shift_L"}};
    return names.at(key);
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, KeyboardContract, LinuxWorld);

// Ctrl is Command and Super is Control.
TEST(LinuxKeyboard, EachModifierKeyHasItsCodeAndItsModifier) {
  const std::map<std::uint16_t, std::uint32_t> modifiers{
      {keyCode::command, eventModifier::command},
      {keyCode::shift, eventModifier::shift},
      {keyCode::option, eventModifier::option},
      {keyCode::control, eventModifier::control}};
  LinuxWorld world;
  for (const auto& [key, modifier] : modifiers) {
    world.press(key);
    EXPECT_TRUE(world.adapter.keyMap().isDown(key)) << key;
    EXPECT_EQ(world.adapter.eventModifiers(), modifier) << key;
    world.release(key);
  }
}

TEST(LinuxKeyboard, AltAndSuperAreWhateverBitsTheyHave) {
  LinuxWorld world;
  run("xmodmap -e 'clear mod1' -e 'clear mod3' -e 'clear mod4'"
      " -e 'add mod3 = Alt_L' -e 'add mod1 = Super_L'");
  world.press(keyCode::option);
  EXPECT_TRUE(world.adapter.keyMap().isDown(keyCode::option));
  EXPECT_EQ(world.adapter.eventModifiers(), eventModifier::option);
  world.press(keyCode::control);
  EXPECT_EQ(world.adapter.eventModifiers(), eventModifier::option | eventModifier::control);
  world.release(keyCode::option);
  EXPECT_EQ(world.adapter.eventModifiers(), eventModifier::control);
  world.release(keyCode::control);
}

TEST(LinuxKeyboard, TheKeypadTypesDigits) {
  LinuxWorld world;
  EXPECT_EQ(world.adapter.translate(83), static_cast<std::uint32_t>('1'));
}

TEST(LinuxKeyboard, GermanUmlautsAreMacRomanAndDeadKeysTypeNothing) {
  LinuxWorld world;
  world.use("de");
  EXPECT_EQ(world.adapter.translate(33), 0x9FU) << "u with two dots";
  EXPECT_EQ(world.adapter.translate(50), 0U) << "the dead circumflex";
  EXPECT_EQ(world.adapter.layoutIdentifier(), "com.apple.keylayout.De");
}

TEST(LinuxKeyboard, AnUmlautInTheTablesIsTheCharacterThatAShortcutNames) {
  LinuxWorld world;
  world.use("de");
  const auto layout = world.adapter.characterTables();
  ASSERT_TRUE(layout);
  EXPECT_EQ(layout->tables[0][33], 0xFCU) << "u with two dots";
  EXPECT_EQ(layout->tables[1][33], 0xDCU) << "the capital";
}

TEST(LinuxKeyboard, CyrillicLettersHaveNoCodeOfTheirOwn) {
  LinuxWorld world;
  world.use("ru");
  EXPECT_EQ(world.adapter.translate(0), 0U);
}

/// A layout, a key of it by the server's number, and the one virtual key code of that key.
struct ModifierOf {
  const char* layout;
  const char* key;
  std::uint16_t code;
};

void PrintTo(const ModifierOf& row, std::ostream* out) {
  *out << row.layout << ", key " << row.key;
}

class ModifiersOfLayouts : public ::testing::TestWithParam<ModifierOf> {};

TEST_P(ModifiersOfLayouts, CountAsWhatTheyActAs) {
  LinuxWorld world;
  world.use(GetParam().layout); // while the adapter is open
  run(std::string("xdotool keydown ") + GetParam().key);
  KeyMap expected;
  expected.set(GetParam().code);
  EXPECT_EQ(world.adapter.keyMap(), expected);
  run(std::string("xdotool keyup ") + GetParam().key);
  if (GetParam().code == keyCode::capsLock)
    run(std::string("xdotool key ") + GetParam().key);
}

constexpr std::uint16_t placeOfRightAlt = 61;
INSTANTIATE_TEST_SUITE_P(
    Keys, ModifiersOfLayouts,
    ::testing::Values(ModifierOf{"us", "105", keyCode::command}, // on the right: Ctrl
                      ModifierOf{"us", "62", keyCode::shift},
                      ModifierOf{"us", "108", keyCode::option},
                      ModifierOf{"us", "134", keyCode::control},
                      ModifierOf{"us -variant altgr-intl", "108", placeOfRightAlt}, // AltGr
                      ModifierOf{"us -option ctrl:swapcaps", "66", keyCode::command},
                      ModifierOf{"us -option ctrl:swapcaps", "37", keyCode::capsLock},
                      ModifierOf{"us -option ctrl:nocaps", "66", keyCode::command},
                      ModifierOf{"us -option ctrl:nocaps", "37", keyCode::command},
                      ModifierOf{"us -option caps:ctrl_modifier", "66", keyCode::command},
                      ModifierOf{"us -option altwin:swap_alt_win", "64", keyCode::control},
                      ModifierOf{"us -option altwin:swap_alt_win", "133", keyCode::option},
                      ModifierOf{"us -option caps:escape", "66", 127},
                      ModifierOf{"us -option ctrl:swap_lalt_lctl", "64", keyCode::command},
                      ModifierOf{"us -option ctrl:swap_lalt_lctl", "37", keyCode::option}));

/// The key for a character as hot keys without a key code are given it: in the first table that has
/// it.
std::optional<std::size_t> keyFor(const CharacterTables& layout, char character) {
  for (const CharacterTable& table : layout.tables) {
    const auto found = std::ranges::find(table, static_cast<std::uint8_t>(character));
    if (found != table.end())
      return static_cast<std::size_t>(found - table.begin());
  }
  return std::nullopt;
}

/// A layout with the group in force, and the key for a character there.
struct CharacterOf {
  const char* layout;
  std::uint8_t group;
  char character;
  std::size_t keyCode;
};

void PrintTo(const CharacterOf& row, std::ostream* out) {
  *out << row.layout << ", group " << int{row.group} << ", " << row.character;
}

class CharactersOfLayouts : public ::testing::TestWithParam<CharacterOf> {};

TEST_P(CharactersOfLayouts, AreFoundInAllGroupsOnTheMainKeysFirst) {
  LinuxWorld world;
  world.use(GetParam().layout);
  lockGroup(GetParam().group);
  EXPECT_EQ(keyFor(world.adapter.characterTables().value(), GetParam().character),
            GetParam().keyCode);
  lockGroup(0);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, CharactersOfLayouts,
    ::testing::Values(CharacterOf{"us", 0, 'K', 40}, CharacterOf{"us", 0, '1', 18},
                      CharacterOf{"us", 0, '/', 44}, CharacterOf{"fr", 0, '1', 18},
                      CharacterOf{"fr", 0, '/', 47}, CharacterOf{"fr", 0, 'Q', 0},
                      CharacterOf{"cz", 0, '5', 23}, CharacterOf{"cz", 0, 'Y', 6},
                      CharacterOf{"ru,us", 0, 'K', 40}, CharacterOf{"ru,us", 1, 'K', 40},
                      CharacterOf{"us,ru", 1, 'K', 40}, CharacterOf{"ru", 0, 'K', 40},
                      CharacterOf{"ru,us -variant ,dvorak", 0, 'K', 9},
                      CharacterOf{"ara,us", 0, 'K', 40},
                      CharacterOf{"us -variant dvorak", 0, 'K', 9}, CharacterOf{"jp", 0, 'K', 40},
                      CharacterOf{"de", 0, 'Z', 16}));

TEST(LinuxKeyboard, CapsLockIsAModifierAlsoWhenItsKeyIsUp) {
  LinuxWorld world;
  run("xdotool key Caps_Lock");
  EXPECT_EQ(world.adapter.eventModifiers(), eventModifier::capsLock);
  EXPECT_FALSE(world.adapter.keyMap().any());
  EXPECT_EQ(world.adapter.translate(0), static_cast<std::uint32_t>('a')) << "without modifiers";
  run("xdotool key Caps_Lock");
  EXPECT_EQ(world.adapter.eventModifiers(), 0U);
}

TEST(LinuxKeyboard, TheGroupInForceIsTheLayout) {
  LinuxWorld world;
  world.use("-layout us,us,ru -variant ,dvorak,");
  const std::int16_t us = world.adapter.layoutId();
  lockGroup(1);
  EXPECT_EQ(world.adapter.layoutIdentifier(), "com.apple.keylayout.Dvorak");
  EXPECT_NE(world.adapter.layoutId(), us);
  EXPECT_EQ(world.adapter.translate(34), static_cast<std::uint32_t>('c'));
  lockGroup(2);
  EXPECT_EQ(world.adapter.layoutIdentifier(), "com.apple.keylayout.Ru");
  lockGroup(0);
  EXPECT_EQ(world.adapter.layoutIdentifier(), "com.apple.keylayout.US");
  EXPECT_EQ(world.adapter.layoutId(), us);
}

TEST(LinuxKeyboard, KeysKeepTheirPlacesInEveryLayout) {
  LinuxWorld world;
  for (const char* layout : {"us", "dvorak", "de", "ru"}) {
    world.use(layout);
    run("xdotool keydown 54"); // the server's number of the third key of the bottom row
    KeyMap expected;
    expected.set(8);
    EXPECT_EQ(world.adapter.keyMap(), expected) << layout;
    run("xdotool keyup 54");
  }
}

TEST(LinuxKeyboard, OtherDvoraksAreNotDvorak) {
  LinuxWorld world;
  for (const char* variant : {"dvp", "dvorak-l", "dvorak-intl"}) {
    world.use(std::string("us -variant ") + variant);
    EXPECT_EQ(world.adapter.layoutIdentifier(), std::string("com.apple.keylayout.Us-") + variant);
  }
}

// The server ends while the keyboard is open.
TEST(LinuxKeyboard, WhenTheServerEndsNothingIsKnownAndOneLineSaysSo) {
  QProcess server;
  server.start("Xvfb", {"-displayfd", "1", "-nolisten", "tcp"});
  ASSERT_TRUE(server.waitForReadyRead(20000));
  const std::string display = std::getenv("DISPLAY");
  ::setenv("DISPLAY", (":" + server.readAllStandardOutput().trimmed()).constData(), 1);
  LinuxKeyboard keyboard;
  ::setenv("DISPLAY", display.c_str(), 1);
  EXPECT_NE(keyboard.layoutIdentifier(), "");
  server.kill();
  ASSERT_TRUE(server.waitForFinished(20000));

  ::testing::internal::CaptureStderr();
  EXPECT_FALSE(keyboard.characterTables());
  EXPECT_FALSE(keyboard.keyMap().any());
  EXPECT_EQ(keyboard.eventModifiers(), 0U);
  EXPECT_EQ(keyboard.layoutIdentifier(), "");
  EXPECT_EQ(keyboard.translate(0), 0U);
  const std::string lines = ::testing::internal::GetCapturedStderr();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 1) << lines;
}

TEST(LinuxKeyboard, WithoutADisplayNothingIsKnown) {
  const std::string display = std::getenv("DISPLAY");
  ::setenv("DISPLAY", ":63999", 1);
  LinuxKeyboard keyboard;
  ::setenv("DISPLAY", display.c_str(), 1);
  EXPECT_FALSE(keyboard.keyMap().any());
  EXPECT_EQ(keyboard.eventModifiers(), 0U);
  EXPECT_EQ(keyboard.layoutIdentifier(), "");
  EXPECT_FALSE(keyboard.characterTables());
  EXPECT_EQ(keyboard.translate(0), 0U);
}

TEST(XkbLayout, NamesTheGroupsLayoutAndVariant) {
  EXPECT_EQ(layoutIdentifierOf("us,ru", ",", 0), "com.apple.keylayout.US");
  EXPECT_EQ(layoutIdentifierOf("us,ru", ",", 1), "com.apple.keylayout.Ru");
  EXPECT_EQ(layoutIdentifierOf("us", "dvorak", 0), "com.apple.keylayout.Dvorak");
  EXPECT_EQ(layoutIdentifierOf("us", "dvp", 0), "com.apple.keylayout.Us-dvp");
  EXPECT_EQ(layoutIdentifierOf("gb", "dvorak", 0), "com.apple.keylayout.Gb-dvorak");
  EXPECT_EQ(layoutIdentifierOf("us", "", 3), "");
  EXPECT_EQ(layoutIdentifierOf("", "", 0), "");
}

} // namespace
} // namespace tavrel
