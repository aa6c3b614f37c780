#pragma once

#include "platform/Preferences.h"
#include "platform/linux/plists/PropertyListFile.h"

#include <functional>
#include <map>

namespace tavrel {

/// Domains as property-list files: NAME.plist in one folder. A file that is no property list reads
/// as what was read before it became so, at first as empty, and is never overwritten: a write first
/// moves it aside. Each trouble is one line on standard error.
class LinuxPreferences final : public Preferences {
public:
  /// A domain that is kept elsewhere.
  struct View {
    std::function<PropertyList::Dictionary()> read;               ///< what it holds at the moment
    std::function<bool(const PropertyList::Dictionary&)> write{}; ///< none: it cannot be written
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

  /// Whether the file of a domain can be read and says something else than what was read or written
  /// last. One that cannot be read is told on standard error.
  [[nodiscard]] bool hasChangedElsewhere(const std::string& domain);

  [[nodiscard]] std::string pathOf(const std::string& domain) const;

private:
  using Changes = std::map<std::string, std::optional<PropertyList>>;
  struct Domain {
    PropertyList::Dictionary values;
    Changes pending;
    PropertyListReader reader{};
  };
  Domain& opened(const std::string& domain);

  bool renewView(const std::string& domain, Domain& renewed);
  bool synchronizeView(const View& view, Domain& domain);

  std::string folder_;
  std::map<std::string, View> views_;
  std::map<std::string, Domain> domains_;
};

} // namespace tavrel
