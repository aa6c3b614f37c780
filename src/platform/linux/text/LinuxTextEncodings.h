#pragma once

#include "platform/TextEncodings.h"

namespace tavrel {

/// The encodings that the installed converters (ICU) know, under the platform's names and numbers.
class LinuxTextEncodings final : public TextEncodings {
public:
  [[nodiscard]] std::vector<StringEncoding> available() override;
  [[nodiscard]] std::optional<std::string> nameOf(StringEncoding encoding) override;
  [[nodiscard]] StringEncoding frameworkEncoding(StringEncoding encoding) override;
  [[nodiscard]] std::optional<Bytes> lossyData(std::string_view text,
                                               StringEncoding encoding) override;
};

} // namespace tavrel
