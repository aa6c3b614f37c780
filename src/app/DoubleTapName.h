#pragma once

namespace tavrel {

/// What a double tap is announced as, inside this process, and the detector's client.
inline constexpr const char* doubleTapName = "TVR_TheKeyDoubleTapped";

} // namespace tavrel
