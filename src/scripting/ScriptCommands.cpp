#include "base/Numbers.h"
#include "controller/TVApplication.h"
#include "maint/Uninstaller.h"
#include "scripting/EncodingNames.h"
#include "scripting/UrlString.h"
#include "selection/PasteboardCopy.h"
#include "selection/SelectionValue.h"

namespace tavrel {

namespace {

std::string textArgument(const ScriptArguments& arguments, const char* key) {
  const std::string* value = stringFor(arguments, key);
  return value ? *value : std::string();
}

RawData rawData(const ScriptArguments& arguments) {
  const auto found = arguments.find("rawData");
  const bool wanted = found != arguments.end() && found->second.boolean().value_or(false);
  return wanted ? RawData::yes : RawData::no;
}

LineEndings lineEndings(const ScriptArguments& arguments) {
  const auto found = arguments.find("targetLineEndings");
  const auto code = found == arguments.end() ? std::nullopt : uint32Value(found->second);
  if (code == scriptLineEndings::carriageReturn)
    return LineEndings::carriageReturn;
  return code == scriptLineEndings::carriageReturnLineFeed ? LineEndings::carriageReturnLineFeed
                                                           : LineEndings::lineFeed;
}

} // namespace

std::optional<PropertyList> TVApplication::contextObject() const {
  return selectionValue();
}

void TVApplication::handleCopyToClipboardScriptCommand() {
  copyPrivateToGeneralPasteboard();
}

PropertyList TVApplication::handleConvertScriptCommand(const ScriptArguments& arguments) {
  const StringEncoding encoding = encodingFromName(textArgument(arguments, "targetEncoding"));
  if (encoding == invalidEncoding)
    return "";
  return URLStringInEncoding(textArgument(arguments, "sourceString"), encoding,
                             lineEndings(arguments), rawData(arguments));
}

void TVApplication::handleUninstallScriptCommand() {
  uninstallTavrel();
}

} // namespace tavrel
