#pragma once

#include "platform/Bundle.h"

#include <map>

namespace tavrel {

/// A bundle of plain values.
class MemoryBundle final : public Bundle {
public:
  struct Control {
    std::map<std::string, std::string> strings;       ///< by key
    std::map<std::string, std::string> information;   ///< by key
    std::map<std::string, std::string> resourcePaths; ///< by "name.type"
    std::vector<std::string> localizations;           ///< best first
    std::string path = "/Applications/Tavrel.app";
  };
  Control control;

  std::string localizedString(const std::string& key) override {
    return lookedUp(control.strings, key).value_or(key);
  }
  std::vector<std::string> preferredLocalizations() override { return control.localizations; }
  std::optional<std::string> informationValue(const std::string& key) override {
    return lookedUp(control.information, key);
  }
  std::string bundlePath() override { return control.path; }
  std::optional<std::string> resourcePath(const std::string& name,
                                          const std::string& type) override {
    return lookedUp(control.resourcePaths, name + "." + type);
  }

private:
  static std::optional<std::string> lookedUp(const std::map<std::string, std::string>& values,
                                             const std::string& key) {
    const auto found = values.find(key);
    return found == values.end() ? std::nullopt : std::optional(found->second);
  }
};

} // namespace tavrel
