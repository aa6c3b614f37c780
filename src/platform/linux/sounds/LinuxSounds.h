#pragma once

#include "platform/Sounds.h"
#include "platform/linux/sounds/EventVolume.h"
#include "platform/linux/sounds/SoundPlayer.h"

namespace tavrel {

/// Our own sounds by name (whatever ending they are asked for with), then those of the sound theme.
/// Without a sound server nothing is heard but the bell of the display, and there is no volume.
class LinuxSounds final : public Sounds {
public:
  /// Sound files are looked for in the folder's "sounds".
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
