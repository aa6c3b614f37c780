#pragma once

#include "platform/Bundle.h"

namespace tavrel {

/// A bundle; its resources lie in one folder, whatever their kind.
class MacBundle final : public Bundle {
public:
  /// The application's own when no folder is named.
  explicit MacBundle(std::string folder = {}) : folder_(std::move(folder)) {}

  std::string localizedString(const std::string& key) override;
  std::vector<std::string> preferredLocalizations() override;
  std::optional<std::string> informationValue(const std::string& key) override;
  std::string bundlePath() override;
  std::optional<std::string> resourcePath(const std::string& name,
                                          const std::string& type) override;

private:
  std::string folder_;
};

} // namespace tavrel
