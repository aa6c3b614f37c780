#pragma once

#include "base/PropertyList.h"
#include "script/ScriptError.h"

namespace tavrel::script {

/// Why a script could not be loaded or did not come to its end.
struct ErrorReport {
  int number = 0;
  std::string message;
  std::string application; ///< that answered with the error; empty when none did
  Span range;              ///< the place in the source; of length 0 when it is not known
};

/// The error as a dictionary: "NSAppleScriptErrorNumber", "NSAppleScriptErrorMessage",
/// "NSAppleScriptErrorBriefMessage", "NSAppleScriptErrorRange" ("{start, length}" in UTF-16 units)
/// and "NSAppleScriptErrorAppName".
[[nodiscard]] PropertyList errorDictionary(const ErrorReport& error, const std::string& source);

} // namespace tavrel::script
