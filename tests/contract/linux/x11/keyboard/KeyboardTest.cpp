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

TEST(LinuxKeyboard, CyrillicLettersHaveNoCodeOfTheirOwn) {
  LinuxWorld world;
  world.use("ru");
  EXPECT_EQ(world.adapter.translate(0), 0U);
}

TEST(LinuxKeyboard, TheRightHandKeysHaveCodesOfTheirOwn) {
  const std::map<std::string, std::uint16_t> keys{
      {"105", 54}, {"62", 60}, {"108", 61}, {"134", 62}}; // by the server's key numbers
  LinuxWorld world;
  for (const auto& [name, code] : keys) {
    run("xdotool keydown " + name);
    KeyMap expected;
    expected.set(code);
    EXPECT_EQ(world.adapter.keyMap(), expected) << name;
    run("xdotool keyup " + name);
  }
}

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
