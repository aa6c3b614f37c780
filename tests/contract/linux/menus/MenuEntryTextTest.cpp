#include "platform/linux/menus/MenuEntryText.h"

#include "base/Modifiers.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <gtest/gtest.h>

#include <map>

namespace tavrel {
namespace {

constexpr int wide = 400;

QString title(std::string text, int indentation = 0) {
  MenuItem item;
  item.title = std::move(text);
  item.indentation = indentation;
  return entryTitle(item, QFontMetrics(QGuiApplication::font()), wide);
}

QString shortcut(std::string key, std::uint32_t mask) {
  MenuItem item;
  item.keyEquivalent = std::move(key);
  item.keyEquivalentModifierMask = mask;
  return entryShortcut(item);
}

TEST(MenuEntryText, LineFeedsTabsAndControlCharactersAreBlanks) {
  EXPECT_EQ(title("a\nb\tc\rd\x01"
                  "e"),
            "a b c d e");
  EXPECT_EQ(title("a\u2028b\u2029c"), "a b c");
}

TEST(MenuEntryText, MarksThatTurnTheReadingDirectionAreLeftOut) {
  EXPECT_EQ(title("photo\u202Egpj.exe\u202C"), "photogpj.exe");
  EXPECT_EQ(title("a\u2066b\u2069"), "ab");
}

TEST(MenuEntryText, BytesThatAreNoTextShowAsReplacementCharacters) {
  EXPECT_EQ(title("a\xFF"), QStringLiteral("a\uFFFD"));
}

TEST(MenuEntryText, LongTitlesKeepTheirEnds) {
  const QString shown = title("begin" + std::string(100'000, 'x') + "end.txt");
  EXPECT_TRUE(shown.startsWith("begin"));
  EXPECT_TRUE(shown.endsWith("end.txt"));
  EXPECT_LE(QFontMetrics(QGuiApplication::font()).horizontalAdvance(shown), wide);
}

TEST(MenuEntryText, IndentationGoesInFrontInEms) {
  EXPECT_EQ(title("a", 2), QStringLiteral("\u2003\u2003a"));
  EXPECT_EQ(title("a", -1), "a");
  EXPECT_LT(title("a", 1'000'000).size(), 100);
}

TEST(MenuEntryText, AmpersandsShowAsThemselves) {
  MenuItem item;
  item.title = "Fish & Chips";
  item.keyEquivalent = "&";
  item.keyEquivalentModifierMask = modifier::command;
  EXPECT_EQ(actionText(item, QFontMetrics(QGuiApplication::font()), wide),
            "Fish && Chips\tCtrl+&&");
}

TEST(MenuEntryText, KeyEquivalentsAreNamedAsOnThisDesktop) {
  using namespace modifier;
  EXPECT_EQ(shortcut("k", command), "Ctrl+K");
  EXPECT_EQ(shortcut("k", command | option | shift | control), "Super+Ctrl+Alt+Shift+K");
  EXPECT_EQ(shortcut("\uF704", 0), "F1");
  EXPECT_EQ(shortcut("\uF726", 0), "F35");
  EXPECT_EQ(shortcut("\r", shift), "Shift+Return");
  EXPECT_EQ(shortcut(" ", control), "Super+Space");
}

/// The characters by which key equivalents name keys that type none, from 0xF700 on as the platform
/// numbers its function keys.
TEST(MenuEntryText, EachKeyThatTypesNothingIsNamed) {
  const std::map<char16_t, const char*> keys{
      {0x03, "Enter"},  {0x08, "Backspace"}, {0x09, "Tab"},    {0x0D, "Return"},  {0x1B, "Esc"},
      {0x20, "Space"},  {0x7F, "Backspace"}, // Delete goes backwards there
      {0xF700, "Up"},   {0xF701, "Down"},    {0xF702, "Left"}, {0xF703, "Right"}, {0xF728, "Del"},
      {0xF729, "Home"}, {0xF72B, "End"},     {0xF72C, "PgUp"}, {0xF72D, "PgDown"}};
  for (const auto& [character, name] : keys)
    EXPECT_EQ(shortcut(QString(QChar(character)).toStdString(), 0), name) << int{character};
  for (int number = 1; number <= 35; ++number)
    EXPECT_EQ(shortcut(QString(QChar(0xF703 + number)).toStdString(), 0),
              QStringLiteral("F%1").arg(number));
}

TEST(MenuEntryText, AMaskWithoutAKeyIsNoShortcut) {
  EXPECT_EQ(shortcut("", modifier::option), "");
  EXPECT_EQ(shortcut("\x01", modifier::option), "");
}

} // namespace
} // namespace tavrel
