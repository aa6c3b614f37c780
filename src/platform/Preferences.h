#pragma once

#include "base/PropertyList.h"

#include <optional>
#include <string>

namespace tavrel {

/// The domain that holds every setting and the menu tree, shared with the preference program. Its
/// notifications name it as their sender.
inline constexpr const char* preferenceDomain = "qorvane.tavrel.pref";

/// Application values kept in named domains. Reads are answered from a copy of the domain that is
/// taken at its first use and renewed by `synchronize`: what another program writes is not seen
/// before. Writes are seen by later reads at once and by other programs after `synchronize`, or
/// when the store is destroyed.
class Preferences {
public:
  virtual ~Preferences() = default;

  /// The value under a key; nothing when the key or the whole domain is missing or unreadable.
  [[nodiscard]] virtual std::optional<PropertyList> value(const std::string& domain,
                                                          const std::string& key) = 0;

  /// Stores a value under a key, or removes the key when there is none.
  virtual void setValue(const std::string& domain, const std::string& key,
                        std::optional<PropertyList> value) = 0;

  /// Writes this program's changes, keeping every other key as it stands in the store now, and
  /// renews the copy. False when the changes could not be written; they stay pending then.
  virtual bool synchronize(const std::string& domain) = 0;

  /// Every value of a domain, this program's own changes in it; nothing for one that holds none.
  [[nodiscard]] virtual std::optional<PropertyList::Dictionary>
  persistentDomain(const std::string& domain) = 0;

  /// Empties a domain, or gives it these values and no others. Like every write.
  virtual void removePersistentDomain(const std::string& domain) = 0;
  virtual void setPersistentDomain(const std::string& domain,
                                   const PropertyList::Dictionary& values) = 0;
};

} // namespace tavrel
