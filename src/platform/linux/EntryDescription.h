#pragma once

#include "platform/Menu.h"

#include <QString>

namespace tavrel {

/// What choosing an entry will do, for those who cannot see its icon; empty where the title says
/// all there is to say.
[[nodiscard]] QString entryDescription(const MenuItem& item);

} // namespace tavrel
