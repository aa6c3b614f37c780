#include "platform/memory/MemoryRichText.h"

namespace tavrel {

std::optional<std::string> MemoryRichText::wordsOf(const std::map<Bytes, std::string>& texts,
                                                   const Bytes& data) {
  const auto found = texts.find(data);
  return found == texts.end() ? std::nullopt : std::optional(found->second);
}

} // namespace tavrel
