#pragma once

#include <QElapsedTimer>
#include <QString>

class QKeyEvent;
class QMenu;

namespace tavrel {

/// Moves the highlight of an open menu to the entry whose title begins with what is typed, whatever
/// its case. A pause begins a new word; the same letter again goes on to the next such entry.
class TypeAhead {
public:
  /// True when the key was a letter of a word: nobody else is to have it.
  bool take(const QKeyEvent& key, QMenu& menu);

private:
  QString word_;
  QElapsedTimer sinceLast_;
};

} // namespace tavrel
