#pragma once

namespace tavrel {

/// The name of this program on the session bus, and the path of its object.
inline constexpr const char* busName = "qorvane.tavrel.Tavrel";
inline constexpr const char* busPath = "/qorvane/tavrel/Tavrel";

} // namespace tavrel
