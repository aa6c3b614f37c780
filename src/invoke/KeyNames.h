#pragma once

namespace tavrel {

/// Whether the current keyboard layout is plain Dvorak; variants of it do not count.
[[nodiscard]] bool isDvorak();

/// The virtual key code of a key by its upper-case name ("RETURN", "F5") or the one character it
/// types without modifiers, in the US layout, or in Dvorak while that is current. -1 for every
/// other text. Case counts.
[[nodiscard]] int keyCodeForKeyString(const char* name);

/// The same, always in the Dvorak layout.
[[nodiscard]] int keyCodeForDvorak(const char* name);

} // namespace tavrel
