#pragma once

#include "platform/Event.h"

#import <AppKit/AppKit.h>

namespace tavrel {

/// What the system tells of an event, without asking it for what its kind does not have.
[[nodiscard]] Event eventOf(NSEvent* event);

} // namespace tavrel
