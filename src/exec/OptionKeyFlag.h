#pragma once

namespace tavrel {

/// Whether Option was held when the item being carried out was chosen. Whoever dispatches an item
/// stores it; a hot key stores false.
extern bool sOptionKeyPressed;

} // namespace tavrel
