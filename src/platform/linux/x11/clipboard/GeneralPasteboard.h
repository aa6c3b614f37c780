#pragma once

#include "platform/Pasteboards.h"
#include "platform/linux/x11/clipboard/ClipboardThread.h"

namespace tavrel {

/// The clipboard of the X server as a pasteboard. Its types are first the platform's names for what
/// the owner's targets can give (ClipboardFlavors.h), then each target in the owner's order under a
/// name of its own (NativeTarget.h), whose data is exact. Who may keep the clipboard when something
/// is declared: see SystemClipboard.
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
