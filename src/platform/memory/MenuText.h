#pragma once

#include "platform/Menu.h"

#include <string>

namespace tavrel {

/// What `menuText` writes: the rows that a user sees with Option up, or all that a menu holds.
enum class MenuTextDetail { visibleRows, everything };

/// A menu as text, to compare with an approved one: a line for each entry, submenus indented by two
/// blanks a level. A line holds the title (after a tick and the entry's own indentation), the key
/// equivalent as "⌃⌥⇧⌘x", "[disabled]" and the submenu's title in parentheses; with `everything`
/// also "[hidden]", "[alternate]", the action's name in angle brackets, and the names of the
/// image's layers, bottom first, in braces. A separator is "----".
[[nodiscard]] std::string menuText(const Menu& menu, MenuTextDetail detail);

/// One line of `menuText`, without its line feed and the submenu's own lines.
[[nodiscard]] std::string menuItemText(const MenuItem& item, MenuTextDetail detail);

} // namespace tavrel
