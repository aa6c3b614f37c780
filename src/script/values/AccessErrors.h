#pragma once

#include "script/values/Value.h"

namespace tavrel::script {

/// "Can't get WHAT of WHOLE": throws ScriptError (`noSuchObject`). `what` names the property or
/// element as a script would, as "item 3".
[[noreturn]] void cannotGet(const std::string& what, const Value& whole);

/// "Can't set WHAT of WHOLE": throws ScriptError (`cannotSet`).
[[noreturn]] void cannotSet(const std::string& what, const Value& whole);

} // namespace tavrel::script
