#pragma once

#include "platform/Menu.h"

#include <QString>

class QFontMetrics;

namespace tavrel {

/// An entry's title as a menu shows it: on one line, with blanks for control characters, without
/// the Unicode marks that reverse the reading direction (a file name can use them to hide its
/// ending), indented, and shortened in the middle when it is wider than `maximumWidth` pixels.
[[nodiscard]] QString entryTitle(const MenuItem& item, const QFontMetrics& metrics,
                                 int maximumWidth);

/// Whether the title as it shows begins with a word, whatever the case of either.
[[nodiscard]] bool titleBeginsWith(const MenuItem& item, const QString& word);

/// The key equivalent as users read it on this desktop, as "Ctrl+Alt+K"; empty for none.
[[nodiscard]] QString entryShortcut(const MenuItem& item);

/// Title and key equivalent as the text of a QAction: `&` doubled, a tab between the two.
[[nodiscard]] QString actionText(const MenuItem& item, const QFontMetrics& metrics,
                                 int maximumWidth);

} // namespace tavrel
