#pragma once

#include "platform/linux/menus/LevelRows.h"

#include <QElapsedTimer>
#include <QString>

#include <optional>

class QKeyEvent;

namespace tavrel {

/// Finds the row of an open level whose title begins with what is typed, whatever its case. A pause
/// begins a new word; the same letter again goes on to the next such row.
class TypeAhead {
public:
  struct Answer {
    bool taken = false; ///< the key was a letter of a word: nobody else is to have it
    std::optional<std::size_t> row;
  };

  [[nodiscard]] Answer take(const QKeyEvent& key, const LevelRows& rows,
                            std::optional<std::size_t> current);

private:
  QString word_;
  QElapsedTimer sinceLast_;
};

} // namespace tavrel
