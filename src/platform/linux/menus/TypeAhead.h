#pragma once

#include "platform/linux/menus/LevelRows.h"

#include <QElapsedTimer>
#include <QString>

#include <optional>

class QKeyEvent;

namespace tavrel {

/// Finds the row of an open level whose title begins with what the user types, in any case. After a
/// pause of a second a new word begins; the same letter once more goes on to the next such
/// row.
class TypeAhead {
public:
  struct Answer {
    bool taken = false; ///< the key was used as a letter, and must not go to the menu
    std::optional<std::size_t> row;
  };

  [[nodiscard]] Answer typeKey(const QKeyEvent& key, const LevelRows& rows,
                               std::optional<std::size_t> current);

private:
  QString word_;
  QElapsedTimer sinceLast_;
};

} // namespace tavrel
