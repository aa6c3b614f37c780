#pragma once

#include "platform/TextEncodings.h"

namespace tavrel {

/// UTF-8 alone so far.
class LinuxTextEncodings final : public TextEncodings {
public:
  std::vector<StringEncoding> available() override { return {utf8, invalidEncoding}; }
  std::optional<std::string> nameOf(StringEncoding encoding) override {
    return encoding == utf8 ? std::optional<std::string>("Unicode (UTF-8)") : std::nullopt;
  }
  StringEncoding frameworkEncoding(StringEncoding encoding) override {
    return encoding == utf8 ? frameworkUtf8 : invalidEncoding;
  }
  std::optional<Bytes> lossyData(std::string_view text, StringEncoding encoding) override {
    return encoding == frameworkUtf8 ? std::optional(Bytes(text.begin(), text.end()))
                                     : std::nullopt;
  }

private:
  static constexpr StringEncoding utf8 = 0x08000100;
  static constexpr StringEncoding frameworkUtf8 = 4;
};

} // namespace tavrel
