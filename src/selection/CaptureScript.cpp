#include "selection/CaptureScript.h"

#include "base/Utf8.h"
#include "platform/Scripts.h"

#include <cstring>

namespace tavrel {

std::optional<std::string> captureScriptFor(const std::string& applicationName) {
  if (applicationName == "Finder")
    return "CopyFinderSelection";
  if (applicationName == "TextEdit")
    return "CopyTextEditSelection";
  if (applicationName == "Path Finder")
    return "CopyPathFinderSelection";
  return std::nullopt;
}

std::string textFromUnits(const Bytes& data) {
  std::u16string units(data.size() / sizeof(char16_t), u'\0');
  if (!units.empty())
    std::memcpy(units.data(), data.data(), units.size() * sizeof(char16_t));
  return utf8FromUtf16(units);
}

std::optional<std::vector<std::string>> pathsIn(const std::optional<AppleEventDescriptor>& result) {
  if (!result || result->descriptorType != typeAEList)
    return std::nullopt;
  std::vector<std::string> paths;
  for (const Bytes& item : result->items)
    paths.push_back(textFromUnits(item));
  return paths;
}

} // namespace tavrel
