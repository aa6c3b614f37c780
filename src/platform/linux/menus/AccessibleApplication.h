#pragma once

namespace tavrel {

/// Makes open menus children of the application for assistive programs. Qt 6 lists windows only,
/// because a menu usually belongs to a window and is found there; ours belong to none.
void installAccessibleApplication();

} // namespace tavrel
