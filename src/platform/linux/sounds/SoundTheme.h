#pragma once

#include <string>

namespace tavrel {

/// Is a sound of that name in any sound theme installed (the XDG Sound Theme specification's
/// folders and endings)? Its variants ("bell-window") are names of their own here.
[[nodiscard]] bool isInSoundTheme(const std::string& name);

} // namespace tavrel
