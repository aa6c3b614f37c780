#include "platform/linux/menus/MenuEntryText.h"

#include "base/Modifiers.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QKeySequence>

#include <algorithm>
#include <string_view>

namespace tavrel {

namespace {
constexpr qsizetype shapingLimit = 500; ///< characters: more than can show, and layout is slow

bool isDirectionMark(QChar c) {
  return (c >= QChar(0x202A) && c <= QChar(0x202E)) || (c >= QChar(0x2066) && c <= QChar(0x2069));
}

bool isControlCharacter(QChar c) {
  return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
         c.category() == QChar::Separator_Paragraph;
}

QString oneLine(std::string_view title) {
  QString text = QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size()));
  text.removeIf(isDirectionMark);
  std::replace_if(text.begin(), text.end(), isControlCharacter, QChar(u' '));
  return text;
}

QString elided(QString text, const QFontMetrics& metrics, int maximumWidth) {
  if (text.size() * metrics.height() <= maximumWidth)
    return text; // fits even if each character is as wide as high: most titles need no measuring
  if (text.size() > shapingLimit)
    text = text.left(shapingLimit / 2) + QChar(0x2026) + text.right(shapingLimit / 2);
  return metrics.elidedText(text, Qt::ElideMiddle, maximumWidth);
}

struct NamedKey {
  char16_t character;
  Qt::Key key;
};
/// Key equivalents that are no printable character. From 0xF700 on they are the platform's codes
/// for arrow, function and navigation keys.
constexpr NamedKey namedKeys[] = {
    {0x08, Qt::Key_Backspace},  {0x09, Qt::Key_Tab},     {0x0D, Qt::Key_Return},
    {0x03, Qt::Key_Enter},      {0x1B, Qt::Key_Escape},  {0x20, Qt::Key_Space},
    {0x7F, Qt::Key_Backspace},  {0xF700, Qt::Key_Up},    {0xF701, Qt::Key_Down},
    {0xF702, Qt::Key_Left},     {0xF703, Qt::Key_Right}, {0xF728, Qt::Key_Delete},
    {0xF729, Qt::Key_Home},     {0xF72B, Qt::Key_End},   {0xF72C, Qt::Key_PageUp},
    {0xF72D, Qt::Key_PageDown},
};
constexpr char16_t firstFunctionKey = 0xF704;
constexpr char16_t lastFunctionKey = 0xF726;

QString keyName(const QString& character) {
  const char16_t code = character.front().unicode();
  if (code >= firstFunctionKey && code <= lastFunctionKey)
    return QStringLiteral("F%1").arg(code - firstFunctionKey + 1);
  for (const NamedKey& named : namedKeys)
    if (named.character == code)
      return QKeySequence(named.key).toString(QKeySequence::NativeText);
  return isControlCharacter(character.front()) ? QString() : character.toUpper();
}

QString modifierNames(std::uint32_t mask) {
  static constexpr struct {
    std::uint32_t bit;
    const char* name;
  } names[] = {{modifier::control, "Super"},
               {modifier::command, "Ctrl"},
               {modifier::option, "Alt"},
               {modifier::shift, "Shift"}};
  QString text;
  for (const auto& [bit, name] : names)
    if ((mask & bit) != 0)
      text += QCoreApplication::translate("QShortcut", name) + u'+';
  return text;
}
} // namespace

QString entryTitle(const MenuItem& item, const QFontMetrics& metrics, int maximumWidth) {
  constexpr int deepest = 16;
  const QString indentation(std::clamp(item.indentation, 0, deepest), QChar(0x2003));
  return indentation + elided(oneLine(item.title), metrics, maximumWidth);
}

/// Called for every entry at each typed letter: most differ in their first letter, which is cheap
/// to compare.
bool titleBeginsWith(const MenuItem& item, const QString& word) {
  constexpr std::size_t aroundWord = 64; // bytes for marks and blanks before it
  const char first = item.title.empty() ? ' ' : item.title.front();
  const bool plainLetters = first > ' ' && first < 0x7F && word.front().unicode() < 0x7F;
  if (plainLetters && QChar::toLower(static_cast<uint>(first)) != word.front().toLower().unicode())
    return false;
  const auto bytes = static_cast<std::size_t>(word.size()) * 4 + aroundWord;
  return oneLine(std::string_view(item.title).substr(0, bytes))
      .trimmed()
      .startsWith(word, Qt::CaseInsensitive);
}

QString entryShortcut(const MenuItem& item) {
  const QString key = QString::fromStdString(item.keyEquivalent);
  const QString name = key.isEmpty() ? QString() : keyName(key);
  return name.isEmpty() ? QString() : modifierNames(item.keyEquivalentModifierMask) + name;
}

QString actionText(const MenuItem& item, const QFontMetrics& metrics, int maximumWidth) {
  QString title = entryTitle(item, metrics, maximumWidth);
  QString shortcut = entryShortcut(item);
  title.replace(u'&', QStringLiteral("&&"));
  shortcut.replace(u'&', QStringLiteral("&&"));
  return shortcut.isEmpty() ? title : title + u'\t' + shortcut;
}

} // namespace tavrel
