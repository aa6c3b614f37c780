#include "platform/linux/menus/MenuEntryText.h"

#include "base/Modifiers.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <gtest/gtest.h>

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

TEST(MenuEntryText, AMaskWithoutAKeyIsNoShortcut) {
  EXPECT_EQ(shortcut("", modifier::option), "");
  EXPECT_EQ(shortcut("\x01", modifier::option), "");
}

} // namespace
} // namespace tavrel
