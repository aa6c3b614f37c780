#include "script/engine/ErrorReport.h"

#include "base/Utf8.h"

#include <algorithm>

namespace tavrel::script {
namespace {

// The length in UTF-16 units of a stretch of bytes.
std::size_t unitsIn(const std::string& source, std::size_t from, std::size_t length) {
  const std::size_t start = std::min(from, source.size());
  return utf16FromUtf8(std::string_view(source).substr(start, length)).size();
}

} // namespace

PropertyList errorDictionary(const ErrorReport& error, const std::string& source) {
  PropertyList::Dictionary result{{"NSAppleScriptErrorNumber", error.number},
                                  {"NSAppleScriptErrorMessage", error.message},
                                  {"NSAppleScriptErrorBriefMessage", error.message}};
  std::string range = "{";
  range.append(std::to_string(unitsIn(source, 0, error.range.start))).append(", ");
  range.append(std::to_string(unitsIn(source, error.range.start, error.range.length))).append("}");
  result.emplace("NSAppleScriptErrorRange", std::move(range));
  if (!error.application.empty())
    result.emplace("NSAppleScriptErrorAppName", error.application);
  return result;
}

} // namespace tavrel::script
