#pragma once

#include "platform/Sounds.h"

namespace tavrel {

/// The bundle's sounds and the system's by name, whatever ending they are asked for with. Where the
/// system does not tell the loudness of the beep there is no volume.
class MacSounds final : public Sounds {
public:
  bool play(const std::string& name) override;
  void beep() override;
  std::int32_t alertVolume() override;
  void setAlertVolume(std::int32_t volume) override;
};

} // namespace tavrel
