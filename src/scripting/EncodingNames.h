#pragma once

#include "platform/TextEncodings.h"

#include <string>

namespace tavrel {

/// The framework's number of the encoding that the platform calls exactly so; `invalidEncoding`
/// when there is none.
[[nodiscard]] StringEncoding encodingFromName(const std::string& name);

} // namespace tavrel
