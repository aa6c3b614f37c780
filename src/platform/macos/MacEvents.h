#pragma once

#include "platform/Event.h"

#import <AppKit/AppKit.h>

namespace tavrel {

/// Converts an event. Only properties that its type has are read: others raise an exception.
[[nodiscard]] Event eventOf(NSEvent* event);

} // namespace tavrel
