#pragma once

#include "platform/Bundle.h"
#include "platform/Platform.h"

#include <string>

namespace tavrel {

/// A text in the user's language. Adapters, which do not know `platform()`, are handed it instead
/// (`Localize` of the Linux menus).
[[nodiscard]] inline std::string localized(const std::string& key) {
  return platform().bundle.localizedString(key);
}

} // namespace tavrel
