#pragma once

namespace tavrel {

/// The clock's time: seconds since 2001-01-01 GMT at the first call, stepped forward from there by
/// the steady clock, whatever becomes of the system's date.
[[nodiscard]] double secondsNow();

} // namespace tavrel
