#pragma once

#include "platform/Scripts.h"

#include <string>

namespace tavrel {

/// The text of an own source: each of its texts stands between the quotation marks of the form as a
/// literal of the scripting language, which ends where the form says, whatever is in it.
[[nodiscard]] std::string sourceText(const OwnSource& source);

} // namespace tavrel
