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
    std::int32_t alertVolume = 0;
    std::vector<std::int32_t> alertVolumes; ///< each one set, oldest first
  };
  Control control;

  bool play(const std::string& name) override {
    if (control.missing.contains(name))
      return false;
    control.played.push_back(name);
    return true;
  }
  void beep() override { ++control.beeps; }
  std::int32_t alertVolume() override { return control.alertVolume; }
  void setAlertVolume(std::int32_t volume) override {
    control.alertVolume = volume;
    control.alertVolumes.push_back(volume);
  }
};

} // namespace tavrel
