#pragma once

#include "platform/Web.h"
#include "platform/linux/web/WebFetch.h"

namespace tavrel {

/// Property lists of either form over HTTP. What could not be had, and why, is a line on standard
/// error.
class LinuxWeb final : public Web {
public:
  explicit LinuxWeb(WebLimits limits = {}) : limits_(limits) {}
  std::optional<PropertyList> dictionaryAt(const std::string& url) override;

private:
  WebLimits limits_;
};

} // namespace tavrel
