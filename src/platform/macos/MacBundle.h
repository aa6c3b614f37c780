#pragma once

#include "platform/Bundle.h"

namespace tavrel {

/// The application's bundle; its resources lie in one folder, whatever their kind.
class MacBundle final : public Bundle {
public:
  std::string localizedString(const std::string& key) override;
  std::vector<std::string> preferredLocalizations() override;
  std::optional<std::string> informationValue(const std::string& key) override;
  std::string bundlePath() override;
  std::optional<std::string> resourcePath(const std::string& name,
                                          const std::string& type) override;
};

} // namespace tavrel
