#pragma once

#include "base/PropertyList.h"

#include <optional>
#include <string>

namespace tavrel {

/// Reads text with attributes for its words alone.
class RichText {
public:
  virtual ~RichText() = default;
  /// The plain text of RTF data; nothing when it is not RTF.
  [[nodiscard]] virtual std::optional<std::string> plainTextOfRtf(const Bytes& rtf) = 0;
  /// The plain text of RTFD data (RTF with attachments); nothing when it is not RTFD.
  [[nodiscard]] virtual std::optional<std::string> plainTextOfRtfd(const Bytes& rtfd) = 0;
};

} // namespace tavrel
