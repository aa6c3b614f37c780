#pragma once

#include "platform/Sounds.h"

namespace tavrel {

/// Sounds of the bundle and of the system by name; the ending is ignored. There is no volume where
/// the system does not expose that of the alert sound.
class MacSounds final : public Sounds {
public:
  bool play(const std::string& name) override;
  void beep() override;
  std::int32_t alertVolume() override;
  void setAlertVolume(std::int32_t volume) override;
};

} // namespace tavrel
