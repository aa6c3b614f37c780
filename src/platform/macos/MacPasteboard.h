#pragma once

#include "platform/Pasteboards.h"

#import <AppKit/AppKit.h>

namespace tavrel {

/// A pasteboard of the system's. The system's own types go by the names in `pasteboardType`; every
/// other name is the system's. A pasteboard whose owner does not answer counts as one without data.
class MacPasteboard final : public Pasteboard {
public:
  /// Nil: a pasteboard that is always empty.
  explicit MacPasteboard(NSPasteboard* pasteboard) : pasteboard_(pasteboard) {}

  [[nodiscard]] NSPasteboard* nsPasteboard() const { return pasteboard_; }

  std::vector<std::string> types() override;
  void declareTypes(const std::vector<std::string>& types) override;
  bool setData(Bytes data, const std::string& type) override;
  std::optional<Bytes> data(const std::string& type) override;
  bool setString(const std::string& text, const std::string& type) override;
  std::optional<std::string> string(const std::string& type) override;
  bool setPropertyList(const PropertyList& list, const std::string& type) override;
  std::optional<PropertyList> propertyList(const std::string& type) override;
  std::int64_t changeCount() override;

private:
  NSPasteboard* pasteboard_;
};

} // namespace tavrel
