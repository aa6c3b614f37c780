#pragma once

#include "platform/Pasteboards.h"
#include "platform/linux/x11/clipboard/ClipboardThread.h"

namespace tavrel {

/// The clipboard of the X server as a pasteboard. Its types are first the flavors that the owner's
/// targets can be converted to (ClipboardFlavors.h), then each target itself, in the owner's order
/// and with its exact bytes (SelectionTarget.h). Which program owns the clipboard after a
/// declaration: see SystemClipboard.
class GeneralPasteboard final : public Pasteboard {
public:
  explicit GeneralPasteboard(ClipboardThread& thread) : thread_(thread) {}

  [[nodiscard]] std::vector<std::string> types() override;
  void declareTypes(const std::vector<std::string>& types) override;
  bool setData(Bytes data, const std::string& type) override;
  [[nodiscard]] std::optional<Bytes> data(const std::string& type) override;
  bool setString(const std::string& text, const std::string& type) override;
  [[nodiscard]] std::optional<std::string> string(const std::string& type) override;
  bool setPropertyList(const PropertyList& list, const std::string& type) override;
  [[nodiscard]] std::optional<PropertyList> propertyList(const std::string& type) override;
  [[nodiscard]] std::int64_t changeCount() override { return thread_.changeCount(); }

private:
  bool put(Bytes data, const std::string& type, SystemClipboard::Emptiness emptiness);

  ClipboardThread& thread_;
};

} // namespace tavrel
