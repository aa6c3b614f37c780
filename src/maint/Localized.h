#pragma once

#include "platform/Bundle.h"
#include "platform/Platform.h"

#include <string>

namespace tavrel {

/// A text in the person's language.
[[nodiscard]] inline std::string localized(const char* key) {
  return platform().bundle.localizedString(key);
}

} // namespace tavrel
