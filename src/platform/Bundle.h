#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// What the application carries with it.
class Bundle {
public:
  virtual ~Bundle() = default;

  /// The text for a key in the user's language; the key itself when there is none.
  [[nodiscard]] virtual std::string localizedString(const std::string& key) = 0;

  /// The bundle's localizations that the user prefers, best first; may be empty.
  [[nodiscard]] virtual std::vector<std::string> preferredLocalizations() = 0;

  /// The text under a key of the information property list; nothing when missing.
  [[nodiscard]] virtual std::optional<std::string> informationValue(const std::string& key) = 0;

  /// The application itself, as the desktop starts it: an absolute path.
  [[nodiscard]] virtual std::string bundlePath() = 0;

  /// The absolute path of a resource, by name and ending; nothing when missing.
  [[nodiscard]] virtual std::optional<std::string> resourcePath(const std::string& name,
                                                                const std::string& type) = 0;
};

} // namespace tavrel
