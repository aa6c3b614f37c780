#include "invoke/AlertVolume.h"

#include "controller/ProcessState.h"
#include "platform/Platform.h"
#include "platform/Sounds.h"

namespace tavrel {

void muteVolume(bool mute) {
  Sounds& sounds = platform().sounds;
  const std::int32_t volume = sounds.alertVolume();
  if (volume != 0 && mute) {
    beepLevel = volume;
    sounds.setAlertVolume(0);
  } else {
    sounds.setAlertVolume(beepLevel);
  }
}

} // namespace tavrel
