#pragma once

#include "platform/RichText.h"

#include <map>

namespace tavrel {

/// Rich text whose words a test names beforehand.
class MemoryRichText final : public RichText {
public:
  struct Control {
    std::map<Bytes, std::string> rtf; ///< the words of each piece of data; none: not RTF
    std::map<Bytes, std::string> rtfd;
  };
  Control control;

  std::optional<std::string> plainTextOfRtf(const Bytes& data) override {
    return wordsOf(control.rtf, data);
  }
  std::optional<std::string> plainTextOfRtfd(const Bytes& data) override {
    return wordsOf(control.rtfd, data);
  }

private:
  static std::optional<std::string> wordsOf(const std::map<Bytes, std::string>& texts,
                                            const Bytes& data);
};

} // namespace tavrel
