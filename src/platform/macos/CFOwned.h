#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <memory>
#include <type_traits>

namespace tavrel {

struct CFReleaser {
  void operator()(CFTypeRef object) const { CFRelease(object); }
};

/// What a function with "Create" or "Copy" in its name gave: released at the end of the scope.
template <class Ref> using CFOwned = std::unique_ptr<std::remove_pointer_t<Ref>, CFReleaser>;

} // namespace tavrel
