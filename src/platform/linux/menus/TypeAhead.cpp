#include "platform/linux/menus/TypeAhead.h"

#include "platform/linux/menus/MenuEntryText.h"

#include <QKeyEvent>

namespace tavrel {

namespace {
constexpr qint64 wordTimeout = 1000; // milliseconds

bool isLetterOfWord(const QKeyEvent& key, const QString& word) {
  const auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  if ((key.modifiers() & commands) || key.text().isEmpty() || !key.text().front().isPrint())
    return false;
  return !word.isEmpty() || !key.text().front().isSpace();
}

std::optional<std::size_t> rowBeginningWith(const QString& word, const LevelRows& rows,
                                            std::size_t from) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::size_t row = (from + i) % rows.size();
    if (titleBeginsWith(*rows.at(row), word) && rows.canBeUsed(row))
      return row;
  }
  return std::nullopt;
}
} // namespace

TypeAhead::Answer TypeAhead::typeKey(const QKeyEvent& key, const LevelRows& rows,
                                     std::optional<std::size_t> current) {
  if (sinceLast_.isValid() && sinceLast_.elapsed() > wordTimeout)
    word_.clear();
  if (!isLetterOfWord(key, word_))
    return {};
  sinceLast_.start();
  const bool sameLetter = word_.compare(key.text(), Qt::CaseInsensitive) == 0;
  if (!sameLetter)
    word_ += key.text();
  const bool fromNextRow = sameLetter || (word_.size() == 1 && current);
  return {true, rowBeginningWith(word_, rows, current.value_or(0) + (fromNextRow ? 1 : 0))};
}

} // namespace tavrel
