#include "platform/linux/installation/LinuxBundle.h"

#include "platform/linux/plists/PropertyListFile.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace tavrel {

namespace {

namespace fs = std::filesystem;
Q_LOGGING_CATEGORY(bundleLog, "tavrel.bundle")

constexpr const char* localizationEnding = ".lproj";
constexpr const char* desktopEntryName = "qorvane.tavrel.Tavrel.desktop";

std::vector<std::string> availableLocalizations(const fs::path& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder, error))
    if (entry.path().extension() == localizationEnding)
      names.push_back(entry.path().stem());
  std::sort(names.begin(), names.end());
  return names;
}

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::vector<std::string> wantedLanguages() {
  std::string wanted = environment("LANGUAGE");
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"})
    if (wanted.empty())
      wanted = environment(name);
  std::vector<std::string> languages;
  std::istringstream list(wanted);
  for (std::string language; std::getline(list, language, ':');)
    languages.push_back(language);
  return languages;
}

// The names a localization of a locale may have, best first.
std::vector<std::string> localizationNames(std::string locale) {
  locale = locale.substr(0, locale.find_first_of(".@"));
  std::replace(locale.begin(), locale.end(), '_', '-');
  if (locale == "C" || locale == "POSIX")
    return {"en"};
  if (locale == "zh-TW" || locale == "zh-HK" || locale == "zh-MO")
    return {locale, "zh-Hant"};
  const std::string language = locale.substr(0, locale.find('-'));
  if (language == "zh")
    return {locale, "zh-Hans"};
  return {locale, language};
}

PropertyList::Dictionary stringsIn(const std::string& path) {
  const PropertyListFile file = readPropertyListFile(path);
  if (!file.problem.empty())
    qCWarning(bundleLog, "%s: %s", path.c_str(), file.problem.c_str());
  return file.values;
}

} // namespace

std::vector<std::string> matchingLocalizations(const std::vector<std::string>& wanted,
                                               const std::vector<std::string>& available) {
  std::vector<std::string> found;
  for (const std::string& locale : wanted)
    for (const std::string& name : localizationNames(locale)) {
      const bool isAvailable =
          std::find(available.begin(), available.end(), name) != available.end();
      if (isAvailable && std::find(found.begin(), found.end(), name) == found.end())
        found.push_back(name);
    }
  return found;
}

LinuxBundle::LinuxBundle(std::string folder) : folder_(std::move(folder)) {
  const fs::path localizations = fs::path(folder_) / "localizations";
  const auto available = availableLocalizations(localizations);
  localizations_ = matchingLocalizations(wantedLanguages(), available);
  if (localizations_.empty())
    localizations_ = matchingLocalizations({"en"}, available);
  if (!localizations_.empty())
    strings_ = stringsIn(localizations / (localizations_.front() + localizationEnding) /
                         "Localizable.strings");
}

std::string LinuxBundle::localizedString(const std::string& key) {
  const auto found = strings_.find(key);
  const std::string* text = found == strings_.end() ? nullptr : found->second.string();
  return text ? *text : key;
}

std::optional<std::string> LinuxBundle::informationValue(const std::string& key) {
  const PropertyListFile information = readPropertyListFile(folder_ + "/Info.plist");
  const auto found = information.values.find(key);
  if (found == information.values.end() || !found->second.string())
    return std::nullopt;
  return *found->second.string();
}

std::string LinuxBundle::bundlePath() {
  const fs::path entry = fs::path(folder_).parent_path() / "applications" / desktopEntryName;
  std::error_code ignored;
  return fs::exists(entry, ignored) ? entry.string()
                                    : QCoreApplication::applicationFilePath().toStdString();
}

std::optional<std::string> LinuxBundle::resourcePath(const std::string& name,
                                                     const std::string& type) {
  if ((name + type).find('/') != std::string::npos)
    return std::nullopt;
  std::error_code ignored;
  for (const char* subfolder : {"", "images", "sounds", "scripts"}) {
    const fs::path path = fs::path(folder_) / subfolder / (name + "." + type);
    if (fs::is_regular_file(path, ignored))
      return path.string();
  }
  return std::nullopt;
}

} // namespace tavrel
