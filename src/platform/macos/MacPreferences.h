#pragma once

#include "platform/Preferences.h"

#include <map>
#include <set>
#include <string>

namespace tavrel {

/// The preference domains of the user for any host, without the fallback to other domains.
class MacPreferences final : public Preferences {
public:
  MacPreferences() = default;
  MacPreferences(const MacPreferences&) = delete;
  MacPreferences& operator=(const MacPreferences&) = delete;
  /// Writes what is still pending.
  ~MacPreferences() override;

  std::optional<PropertyList> value(const std::string& domain, const std::string& key) override;
  void setValue(const std::string& domain, const std::string& key,
                std::optional<PropertyList> value) override;
  bool synchronize(const std::string& domain) override;
  std::optional<PropertyList::Dictionary> persistentDomain(const std::string& domain) override;
  void removePersistentDomain(const std::string& domain) override;
  void setPersistentDomain(const std::string& domain,
                           const PropertyList::Dictionary& values) override;

private:
  PropertyList::Dictionary& opened(const std::string& domain);

  std::map<std::string, PropertyList::Dictionary> copies_;
  std::set<std::string> changed_;
};

} // namespace tavrel
