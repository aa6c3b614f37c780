#pragma once

#include "platform/RichText.h"

namespace tavrel {

/// Attributed text as the system reads it, for its words.
class MacRichText final : public RichText {
public:
  std::optional<std::string> plainTextOfRtf(const Bytes& rtf) override;
  std::optional<std::string> plainTextOfRtfd(const Bytes& rtfd) override;
};

} // namespace tavrel
