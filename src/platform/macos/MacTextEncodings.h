#pragma once

#include "platform/TextEncodings.h"

namespace tavrel {

/// The text encodings that the system converts from and to.
class MacTextEncodings final : public TextEncodings {
public:
  std::vector<StringEncoding> available() override;
  std::optional<std::string> nameOf(StringEncoding encoding) override;
  StringEncoding frameworkEncoding(StringEncoding encoding) override;
  std::optional<Bytes> lossyData(std::string_view text, StringEncoding encoding) override;
};

} // namespace tavrel
