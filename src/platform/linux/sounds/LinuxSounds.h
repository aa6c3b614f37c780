#pragma once

#include "platform/Sounds.h"
#include "platform/linux/sounds/EventVolume.h"
#include "platform/linux/sounds/SoundPlayer.h"

namespace tavrel {

/// Plays our own sounds by name (the ending is ignored), else those of the sound theme. Without a
/// sound server only the bell of the display is heard, and there is no volume.
class LinuxSounds final : public Sounds {
public:
  /// Our own sounds are in the subfolder "sounds".
  explicit LinuxSounds(const std::string& resourceFolder);

  bool play(const std::string& name) override;
  void beep() override;
  std::int32_t alertVolume() override { return volume_.get(); }
  void setAlertVolume(std::int32_t volume) override { volume_.set(volume); }

private:
  std::string folder_;
  EventVolume volume_;
  SoundPlayer player_;
};

} // namespace tavrel
