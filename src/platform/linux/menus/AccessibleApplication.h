#pragma once

namespace tavrel {

/// Lets assistive programs find an open menu below the application. The toolkit counts windows as
/// the application's children and leaves menus out, which usually hang on a window; ours have none.
void installAccessibleApplication();

} // namespace tavrel
