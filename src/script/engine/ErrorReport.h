#pragma once

#include "base/PropertyList.h"
#include "script/ScriptError.h"

namespace tavrel::script {

/// Why a script could not be loaded, or which error ended its run.
struct ErrorReport {
  int number = 0; ///< one of `errors` in ScriptError.h, or the script's or an application's own
  std::string message;
  std::string application; ///< that answered with the error; empty when none did
  Span range;              ///< where in the source; of length 0 when it is not known
};

/// The error as the dictionary that callers of scripts are given: "NSAppleScriptErrorNumber",
/// "NSAppleScriptErrorMessage", "NSAppleScriptErrorBriefMessage", "NSAppleScriptErrorRange"
/// ("{start, length}" in UTF-16 units) and "NSAppleScriptErrorAppName".
[[nodiscard]] PropertyList errorDictionary(const ErrorReport& error, const std::string& source);

} // namespace tavrel::script
