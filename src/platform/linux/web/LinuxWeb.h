#pragma once

#include "platform/Web.h"
#include "platform/linux/web/WebFetch.h"

namespace tavrel {

/// Property lists, XML or binary, over HTTP. A failure and its reason are one line on standard
/// error.
class LinuxWeb final : public Web {
public:
  explicit LinuxWeb(WebLimits limits = {}) : limits_(limits) {}
  std::optional<PropertyList> dictionaryAt(const std::string& url) override;

private:
  WebLimits limits_;
};

} // namespace tavrel
