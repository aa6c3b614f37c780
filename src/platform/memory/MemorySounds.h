#pragma once

#include "platform/Sounds.h"

#include <set>
#include <string>
#include <vector>

namespace tavrel {

/// Sounds that are only written down.
class MemorySounds final : public Sounds {
public:
  struct Control {
    std::set<std::string> missing; ///< names that no sound has
    std::vector<std::string> played;
    int beeps = 0;
  };
  Control control;

  bool play(const std::string& name) override {
    if (control.missing.contains(name))
      return false;
    control.played.push_back(name);
    return true;
  }
  void beep() override { ++control.beeps; }
};

} // namespace tavrel
