#include "platform/memory/MemoryPasteboards.h"

namespace tavrel {

namespace {
constexpr const char* mark = "property list ";
}

MemoryPasteboards::MemoryPasteboards()
    : pasteboards_({[this](const PropertyList& list) { return ticketFor(list); },
                    [this](const Bytes& ticket) { return listOf(ticket); }}) {}

Bytes MemoryPasteboards::ticketFor(const PropertyList& list) {
  lists_.push_back(list);
  const std::string ticket = mark + std::to_string(lists_.size() - 1);
  return Bytes(ticket.begin(), ticket.end());
}

std::optional<PropertyList> MemoryPasteboards::listOf(const Bytes& ticket) const {
  const std::string text(ticket.begin(), ticket.end());
  for (std::size_t i = 0; i < lists_.size(); ++i)
    if (text == mark + std::to_string(i))
      return lists_[i];
  return std::nullopt;
}

} // namespace tavrel
