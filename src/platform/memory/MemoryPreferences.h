#pragma once

#include "platform/Preferences.h"

#include <map>
#include <vector>

namespace tavrel {

/// Domains of plain values. Reads come from a copy that is renewed by synchronising.
class MemoryPreferences final : public Preferences {
public:
  struct Control {
    /// What stands in the store, as every program sees it.
    std::map<std::string, PropertyList::Dictionary> store;
    std::vector<std::string> synchronized; ///< domains, in the order they were synchronised
    bool writesFail = false;
  };
  Control control;

  std::optional<PropertyList> value(const std::string& domain, const std::string& key) override;
  void setValue(const std::string& domain, const std::string& key,
                std::optional<PropertyList> value) override;
  bool synchronize(const std::string& domain) override;
  [[nodiscard]] std::optional<PropertyList::Dictionary>
  persistentDomain(const std::string& domain) override;
  void removePersistentDomain(const std::string& domain) override;
  void setPersistentDomain(const std::string& domain,
                           const PropertyList::Dictionary& values) override;

private:
  struct Copy {
    PropertyList::Dictionary values;
    std::map<std::string, std::optional<PropertyList>> pending;
  };
  Copy& copyOf(const std::string& domain);

  std::map<std::string, Copy> copies_;
};

} // namespace tavrel
