#pragma once

#include "platform/Services.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tavrel {

/// Services that are functions of a test.
class MemoryServices final : public Services {
public:
  struct Control {
    std::map<std::string, std::function<bool(Pasteboard&)>> services; ///< by name
    std::vector<std::string> performed; ///< every name asked for, known or not
    ServicesProvider* provider = nullptr;
  };
  Control control;

  bool performService(const std::string& name, Pasteboard& pasteboard) override {
    control.performed.push_back(name);
    const auto found = control.services.find(name);
    return found != control.services.end() && found->second(pasteboard);
  }
  void setServicesProvider(ServicesProvider* provider) override { control.provider = provider; }
};

} // namespace tavrel
