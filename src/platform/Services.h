#pragma once

#include <string>

namespace tavrel {

class Pasteboard;

/// What this application does when the desktop asks for its service.
class ServicesProvider {
public:
  virtual ~ServicesProvider() = default;
  virtual void invokeTavrelPopup(Pasteboard* pasteboard, const std::string& userData,
                                 std::string* error) = 0;
};

/// Commands that other programs offer to work on a selection.
class Services {
public:
  virtual ~Services() = default;

  /// Lets the service of that name read the pasteboard and write its result back to it. Returns
  /// when the service has begun or has ended; false when there is none of that name or it failed.
  virtual bool performService(const std::string& name, Pasteboard& pasteboard) = 0;

  /// Who answers the desktop's request for our own service. Not owned; null: nobody.
  virtual void setServicesProvider(ServicesProvider* provider) = 0;
};

} // namespace tavrel
