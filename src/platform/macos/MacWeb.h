#pragma once

#include "platform/Web.h"

namespace tavrel {

/// One request of ten seconds and a million bytes at most, answered off the main thread.
class MacWeb final : public Web {
public:
  std::optional<PropertyList> dictionaryAt(const std::string& url) override;
};

} // namespace tavrel
