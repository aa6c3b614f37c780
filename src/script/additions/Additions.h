#pragma once

#include "script/running/AdditionCall.h"

namespace tavrel::script {

/// The scripting addition that does a command (its name in lower case, see syntax/Terminology.h);
/// null for commands that an application or the desktop does.
[[nodiscard]] ScriptingAddition additionNamed(std::string_view command);

} // namespace tavrel::script
