#pragma once

#include "platform/Menu.h"

#include <functional>

namespace tavrel {

/// The text for an English one in the person's language.
using Localize = std::function<std::string(const std::string&)>;

/// What choosing an entry will do, for those who cannot see its icon; empty where the title says
/// all there is to say.
[[nodiscard]] std::string entryDescription(const MenuItem& item, const Localize& localized);

} // namespace tavrel
