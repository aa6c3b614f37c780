#pragma once

#include "platform/InProcessPasteboards.h"

namespace tavrel {

/// The pasteboards of this desktop: named ones live inside the process, and property lists travel
/// on them as XML.
class LinuxPasteboards final : public Pasteboards {
public:
  LinuxPasteboards();
  [[nodiscard]] Pasteboard& named(const std::string& name) override {
    return pasteboards_.named(name);
  }
  [[nodiscard]] Pasteboard& general() override { return pasteboards_.general(); }

private:
  InProcessPasteboards pasteboards_;
};

} // namespace tavrel
