#pragma once

#include "platform/Pasteboards.h"

#include <functional>
#include <map>
#include <memory>

namespace tavrel {

/// How property lists travel as data.
struct PropertyListCoding {
  std::function<Bytes(const PropertyList&)> encode;
  std::function<std::optional<PropertyList>(const Bytes&)> decode; ///< nothing: no property list
};

/// Named pasteboards that no other program sees: plain values, the same on every desktop.
class InProcessPasteboards final : public Pasteboards {
public:
  explicit InProcessPasteboards(PropertyListCoding coding) : coding_(std::move(coding)) {}

  [[nodiscard]] Pasteboard& named(const std::string& name) override;
  /// As good as a clipboard for a process that is alone.
  [[nodiscard]] Pasteboard& general() override { return named("Apple CFPasteboard general"); }

private:
  PropertyListCoding coding_;
  std::map<std::string, std::unique_ptr<Pasteboard>> pasteboards_;
};

} // namespace tavrel
