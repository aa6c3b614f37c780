#pragma once

#include "platform/Menu.h"

#include <cstddef>

namespace tavrel {

/// Small changes to the entry at an index. Where there is no entry, nothing happens.

[[nodiscard]] bool isHiddenMenuItem(const Menu& menu, std::size_t index);
void hideMenuItem(Menu& menu, std::size_t index, bool hidden);
void disableMenuItem(Menu& menu, std::size_t index);

/// Does nothing for a level below 1.
void setMenuItemIndent(Menu& menu, std::size_t index, int level);

/// A pass over the visible entries from `start` on: where two separators meet, and where a
/// separator ends the menu, it hides the entry at `start`. That is deliberately not the separator
/// found.
void validateSeparator(Menu& menu, std::size_t start);

} // namespace tavrel
