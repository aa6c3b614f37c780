#pragma once

#include "base/PropertyList.h"

#include <optional>
#include <string>

namespace tavrel {

/// What other machines lend.
class Web {
public:
  virtual ~Web() = default;

  /// The property list at an address, a dictionary; nothing when it cannot be had in good time, is
  /// too long or is something else. Blocks the caller for a bounded time; no event of the desktop
  /// is handled meanwhile.
  [[nodiscard]] virtual std::optional<PropertyList> dictionaryAt(const std::string& url) = 0;
};

} // namespace tavrel
