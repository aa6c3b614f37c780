#pragma once

#include <string>
#include <vector>

namespace tavrel {

/// What a person can do with an open menu. Titles are those of the innermost open level.
class MenuHands {
public:
  virtual ~MenuHands() = default;
  [[nodiscard]] virtual std::vector<std::string> rows() = 0;
  virtual void holdOption() = 0;
  virtual void releaseOption() = 0;
  [[nodiscard]] virtual bool openSubmenu(const std::string& title) = 0;
  virtual void closeSubmenu() = 0;
  /// False when the entry cannot be chosen.
  virtual bool choose(const std::string& title) = 0;
};

} // namespace tavrel
