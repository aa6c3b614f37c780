#pragma once

#include "platform/RichText.h"

namespace tavrel {

/// RTF by the reader in base/. RTFD as one piece of data is no format of this desktop: only data
/// that is RTF all the same has words.
class LinuxRichText final : public RichText {
public:
  std::optional<std::string> plainTextOfRtf(const Bytes& rtf) override;
  std::optional<std::string> plainTextOfRtfd(const Bytes& rtfd) override;
};

} // namespace tavrel
