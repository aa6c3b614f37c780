#pragma once

#include "platform/common/InProcessPasteboards.h"
#include "platform/linux/x11/clipboard/GeneralPasteboard.h"

namespace tavrel {

/// The pasteboards of this desktop: named ones live inside the process, and property lists travel
/// on them as XML; the general one is the clipboard of the X server. Without one it is in process,
/// too.
class LinuxPasteboards final : public Pasteboards {
public:
  LinuxPasteboards();
  [[nodiscard]] Pasteboard& named(const std::string& name) override {
    return pasteboards_.named(name);
  }
  [[nodiscard]] Pasteboard& general() override;

private:
  InProcessPasteboards pasteboards_;
  std::unique_ptr<ClipboardThread> thread_;
  std::optional<GeneralPasteboard> general_;
};

} // namespace tavrel
