#pragma once

#include "platform/common/InProcessPasteboards.h"
#include "platform/linux/x11/clipboard/GeneralPasteboard.h"

namespace tavrel {

/// The pasteboards of this desktop. Named ones exist inside this process only, with property lists
/// as XML. The general one is the clipboard of the X server; without a server it is in this
/// process, too.
class LinuxPasteboards final : public Pasteboards {
public:
  LinuxPasteboards();
  [[nodiscard]] Pasteboard& named(const std::string& name) override {
    return pasteboards_.named(name);
  }
  [[nodiscard]] Pasteboard& general() override;
  /// Null without a server.
  [[nodiscard]] ClipboardThread* clipboard() { return thread_.get(); }

private:
  InProcessPasteboards pasteboards_;
  std::unique_ptr<ClipboardThread> thread_;
  std::optional<GeneralPasteboard> general_;
};

} // namespace tavrel
