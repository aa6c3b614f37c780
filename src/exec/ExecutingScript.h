#pragma once

namespace tavrel {

/// True while a compiled script runs. Menus are not prepared meanwhile.
extern bool gExecutingScript;

} // namespace tavrel
