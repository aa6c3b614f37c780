#pragma once

#include "platform/common/InProcessPasteboards.h"

#include <vector>

namespace tavrel {

/// Pasteboards on which property lists travel as a ticket: the bytes name a list kept aside.
class MemoryPasteboards final : public Pasteboards {
public:
  MemoryPasteboards();
  [[nodiscard]] Pasteboard& named(const std::string& name) override {
    return pasteboards_.named(name);
  }
  [[nodiscard]] Pasteboard& general() override { return pasteboards_.general(); }

private:
  [[nodiscard]] Bytes ticketFor(const PropertyList& list);
  [[nodiscard]] std::optional<PropertyList> listOf(const Bytes& ticket) const;

  std::vector<PropertyList> lists_;
  InProcessPasteboards pasteboards_;
};

} // namespace tavrel
