#pragma once

#include "platform/TextEncodings.h"

namespace tavrel {

/// The four encodings that everybody knows: UTF-8, Mac OS Roman, ASCII and Latin 1.
class MemoryTextEncodings final : public TextEncodings {
public:
  struct Control {
    std::vector<StringEncoding> listed{0x08000100, 0, 0x0600, 0x0201}; ///< in this order
  };
  Control control;

  std::vector<StringEncoding> available() override;
  std::optional<std::string> nameOf(StringEncoding encoding) override;
  StringEncoding frameworkEncoding(StringEncoding encoding) override;
  std::optional<Bytes> lossyData(std::string_view text, StringEncoding encoding) override;
};

} // namespace tavrel
