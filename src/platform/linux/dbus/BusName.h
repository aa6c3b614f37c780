#pragma once

namespace tavrel {

/// The program on the session bus.
inline constexpr const char* busName = "qorvane.tavrel.Tavrel";
inline constexpr const char* busPath = "/qorvane/tavrel/Tavrel";

} // namespace tavrel
