#pragma once

#include "platform/Web.h"

namespace tavrel {

/// No network yet: nothing can be had.
class LinuxWeb final : public Web {
public:
  std::optional<PropertyList> dictionaryAt(const std::string&) override { return std::nullopt; }
};

} // namespace tavrel
