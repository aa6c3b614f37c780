#include "contract/KeyboardContract.h"

#include "platform/linux/LinuxKeyboard.h"
#include "platform/linux/XkbLayout.h"

#include <cstdlib>
#include <map>
#include <string>

namespace tavrel {
namespace {

void run(const std::string& command) {
  ASSERT_EQ(std::system(command.c_str()), 0) << command;
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
                                                     {keyCode::control, "Super_L"}};
    return names.at(key);
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, KeyboardContract, LinuxWorld);

TEST(LinuxKeyboard, SuperIsTheControlKey) {
  LinuxWorld world;
  world.press(keyCode::control);
  EXPECT_TRUE(world.adapter.keyMap().isDown(keyCode::control));
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
