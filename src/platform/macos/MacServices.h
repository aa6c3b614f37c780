#pragma once

#include "platform/Services.h"

namespace tavrel {

/// The system's services, and our own answer to it.
class MacServices final : public Services {
public:
  /// Only for pasteboards of the pasteboards port: other programs see no others.
  bool performService(const std::string& name, Pasteboard& pasteboard) override;
  void setServicesProvider(ServicesProvider* provider) override;
};

} // namespace tavrel
