#pragma once

#include "script/running/AdditionCall.h"

namespace tavrel::script {

/// Null for the commands of applications and of the desktop.
[[nodiscard]] ScriptingAddition additionNamed(std::string_view command);

} // namespace tavrel::script
