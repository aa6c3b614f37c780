#pragma once

#include "platform/Menu.h"

namespace tavrel {

/// Appends an entry for each running application that has a name, in the desktop's order, with a
/// check mark where the name is that of the application in front.
void addRunningApplications(Menu& menu);

} // namespace tavrel
