#import "platform/macos/MacBundle.h"

#import "platform/macos/BundleFolder.h"
#import "platform/macos/Conversions.h"

namespace tavrel {

std::string MacBundle::localizedString(const std::string& key) {
  return stringOf([bundleIn(folder_) localizedStringForKey:nsString(key) value:nil table:nil]);
}

std::vector<std::string> MacBundle::preferredLocalizations() {
  return stringsOf(bundleIn(folder_).preferredLocalizations);
}

std::optional<std::string> MacBundle::informationValue(const std::string& key) {
  id const value = [bundleIn(folder_) objectForInfoDictionaryKey:nsString(key)];
  if (![value isKindOfClass:NSString.class])
    return std::nullopt;
  return stringOf((NSString*)value);
}

std::string MacBundle::bundlePath() {
  return stringOf(bundleIn(folder_).bundlePath);
}

// Without a name the system would give any resource of that ending.
std::optional<std::string> MacBundle::resourcePath(const std::string& name,
                                                   const std::string& type) {
  if (name.empty() || (name + type).find('/') != std::string::npos)
    return std::nullopt;
  NSString* const path = [bundleIn(folder_) pathForResource:nsString(name) ofType:nsString(type)];
  return path ? std::optional(stringOf(path)) : std::nullopt;
}

} // namespace tavrel
