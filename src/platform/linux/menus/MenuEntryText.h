#pragma once

#include "platform/Menu.h"

#include <QString>

class QFontMetrics;

namespace tavrel {

/// An entry's title as a menu can show it: one line, line feeds, tabs and other control characters
/// as blanks, without the marks that turn the reading direction around, indented by its levels, and
/// shortened in the middle when wider than `maximumWidth` pixels.
[[nodiscard]] QString entryTitle(const MenuItem& item, const QFontMetrics& metrics,
                                 int maximumWidth);

/// Whether the title as it shows begins with a word, whatever the case of either.
[[nodiscard]] bool titleBeginsWith(const MenuItem& item, const QString& word);

/// The key equivalent as people read it on this desktop, as "Ctrl+Alt+K"; empty for none.
[[nodiscard]] QString entryShortcut(const MenuItem& item);

/// Title and key equivalent as an action's text wants them: `&` doubled, a tab between the two.
[[nodiscard]] QString actionText(const MenuItem& item, const QFontMetrics& metrics,
                                 int maximumWidth);

} // namespace tavrel
