#pragma once

#include <string>

namespace tavrel {

/// Whether a sound of that name is in any installed sound theme (folders and endings of the XDG
/// Sound Theme specification). Variants ("bell-window") count as names of their own.
[[nodiscard]] bool isInSoundTheme(const std::string& name);

} // namespace tavrel
