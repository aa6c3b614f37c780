#include "platform/linux/text/LinuxRichText.h"

#include "base/RtfText.h"

namespace tavrel {

std::optional<std::string> LinuxRichText::plainTextOfRtf(const Bytes& rtf) {
  return textOfRtf({reinterpret_cast<const char*>(rtf.data()), rtf.size()});
}

std::optional<std::string> LinuxRichText::plainTextOfRtfd(const Bytes& rtfd) {
  return plainTextOfRtf(rtfd);
}

} // namespace tavrel
