#pragma once

#include "platform/Preferences.h"
#include "platform/linux/plists/PropertyListFile.h"

#include <functional>
#include <map>

namespace tavrel {

/// Domains as property-list files: NAME.plist in one folder. A malformed file keeps the values that
/// were read before (none, at the start), and is never overwritten: a write first moves it aside.
/// Each problem is one line on standard error.
class LinuxPreferences final : public Preferences {
public:
  /// A domain that is not a file of ours but is computed from what the desktop has.
  struct View {
    std::function<PropertyList::Dictionary()> read;               ///< what it holds at the moment
    std::function<bool(const PropertyList::Dictionary&)> write{}; ///< none: read-only
  };

  /// The folder need not exist yet.
  explicit LinuxPreferences(std::string folder, std::map<std::string, View> views = {})
      : folder_(std::move(folder)), views_(std::move(views)) {}
  /// Writes what is still pending.
  ~LinuxPreferences() override;

  std::optional<PropertyList> value(const std::string& domain, const std::string& key) override;
  void setValue(const std::string& domain, const std::string& key,
                std::optional<PropertyList> value) override;
  bool synchronize(const std::string& domain) override;
  [[nodiscard]] std::optional<PropertyList::Dictionary>
  persistentDomain(const std::string& domain) override;
  void removePersistentDomain(const std::string& domain) override;
  void setPersistentDomain(const std::string& domain,
                           const PropertyList::Dictionary& values) override;

  /// Whether another program changed the file of a domain since we read or wrote it. False for a
  /// file that cannot be read, which is reported on standard error.
  [[nodiscard]] bool hasChangedElsewhere(const std::string& domain);

  [[nodiscard]] std::string pathOf(const std::string& domain) const;

private:
  using Changes = std::map<std::string, std::optional<PropertyList>>;
  struct Domain {
    PropertyList::Dictionary values;
    Changes pending;
    PropertyListReader reader{};
  };
  Domain& loadedDomain(const std::string& name);

  /// Reads a view again; false when the domain is a file.
  bool renewView(const std::string& name, Domain& domain);
  bool synchronizeView(const View& view, Domain& domain);

  std::string folder_;
  std::map<std::string, View> views_;
  std::map<std::string, Domain> domains_;
};

} // namespace tavrel
