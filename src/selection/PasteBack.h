#pragma once

#include "platform/Accessibility.h"

namespace tavrel {

/// Puts the captured selection into an application as if the user pasted it, once. The clipboard
/// is afterwards as it was.
void setPasteboardToSelection(const AXUIElementRef& application);

} // namespace tavrel
