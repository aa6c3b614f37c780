#pragma once

#include "platform/Web.h"

#include <map>
#include <vector>

namespace tavrel {

/// Addresses that hold what a test puts there.
class MemoryWeb final : public Web {
public:
  struct Control {
    std::map<std::string, PropertyList> dictionaries; ///< by address
    std::vector<std::string> fetched;
  };
  Control control;

  std::optional<PropertyList> dictionaryAt(const std::string& url) override {
    control.fetched.push_back(url);
    const auto found = control.dictionaries.find(url);
    const bool there = found != control.dictionaries.end() && found->second.dictionary();
    return there ? std::optional(found->second) : std::nullopt;
  }
};

} // namespace tavrel
