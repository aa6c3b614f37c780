#pragma once

#include "base/PropertyList.h"
#include "platform/Bundle.h"

namespace tavrel {

/// The folder of resources as the bundle: Info.plist, localizations/LANGUAGE.lproj with
/// Localizable.strings (an XML property list), sounds, scripts.
class LinuxBundle final : public Bundle {
public:
  /// The user's languages are read from the environment, once.
  explicit LinuxBundle(std::string folder);

  std::string localizedString(const std::string& key) override;
  std::vector<std::string> preferredLocalizations() override { return localizations_; }
  std::optional<std::string> informationValue(const std::string& key) override;
  /// Our desktop entry where one is installed with us, else the program.
  std::string bundlePath() override;
  std::optional<std::string> resourcePath(const std::string& name,
                                          const std::string& type) override;

private:
  std::string folder_;
  std::vector<std::string> localizations_;
  PropertyList::Dictionary strings_;
};

/// The localizations that the user wants, best first, out of those available: by $LANGUAGE (a
/// list), else $LC_ALL, $LC_MESSAGES or $LANG. A region falls back to its language ("de_AT" to
/// "de"); Chinese goes by its script ("zh_CN" to "zh-Hans", "zh_TW" to "zh-Hant").
[[nodiscard]] std::vector<std::string>
matchingLocalizations(const std::vector<std::string>& wanted,
                      const std::vector<std::string>& available);

} // namespace tavrel
