#include "platform/linux/TypeAhead.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>

#include <algorithm>

namespace tavrel {

namespace {
constexpr qint64 pause = 1000; // milliseconds

// Without the mark of a mnemonic, the key equivalent behind the tab and the indentation.
QString bareTitle(const QAction& action) {
  QString title = action.text().section(QLatin1Char('\t'), 0, 0);
  title.replace(QLatin1String("&&"), QLatin1String("&"));
  return title.trimmed();
}

bool canBeHighlighted(const QAction& action) {
  return action.isVisible() && action.isEnabled() && !action.isSeparator();
}

bool isLetterOfWord(const QKeyEvent& key, const QString& word) {
  const auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  if ((key.modifiers() & commands) || key.text().isEmpty() || !key.text().front().isPrint())
    return false;
  return !word.isEmpty() || !key.text().front().isSpace();
}

QAction* entryBeginningWith(const QString& word, const QList<QAction*>& entries, qsizetype from) {
  for (qsizetype i = 0; i < entries.size(); ++i) {
    QAction* entry = entries[(from + i) % entries.size()];
    if (canBeHighlighted(*entry) && bareTitle(*entry).startsWith(word, Qt::CaseInsensitive))
      return entry;
  }
  return nullptr;
}
} // namespace

bool TypeAhead::take(const QKeyEvent& key, QMenu& menu) {
  if (sinceLast_.isValid() && sinceLast_.elapsed() > pause)
    word_.clear();
  if (!isLetterOfWord(key, word_))
    return false;
  sinceLast_.start();
  const bool again = word_.compare(key.text(), Qt::CaseInsensitive) == 0;
  if (!again)
    word_ += key.text();
  const QList<QAction*> entries = menu.actions();
  const qsizetype here = std::max<qsizetype>(0, entries.indexOf(menu.activeAction()));
  const bool onwards = again || (word_.size() == 1 && menu.activeAction());
  if (QAction* found = entryBeginningWith(word_, entries, onwards ? here + 1 : here))
    menu.setActiveAction(found);
  return true;
}

} // namespace tavrel
