#include "platform/linux/sounds/LinuxSounds.h"

#include "base/PathString.h"
#include "platform/linux/sounds/SoundTheme.h"

#include <QApplication>

#include <filesystem>

namespace tavrel {

namespace {

// Called on the player's thread; the display belongs to the main thread.
void ringBell() {
  const auto ring = [] { QApplication::beep(); };
  if (qApp)
    QMetaObject::invokeMethod(qApp, ring, Qt::QueuedConnection);
}

} // namespace

LinuxSounds::LinuxSounds(const std::string& resourceFolder) : folder_(resourceFolder + "/sounds") {}

bool LinuxSounds::play(const std::string& name) {
  const std::string plain = deletingPathExtension(name);
  if (plain.empty() || plain.find('/') != std::string::npos)
    return false;
  const std::string file = appendingPathComponent(folder_, plain + ".wav");
  std::error_code ignored;
  if (std::filesystem::is_regular_file(file, ignored))
    player_.play({SoundRequest::Kind::file, file, {}});
  else if (isInSoundTheme(plain))
    player_.play({SoundRequest::Kind::themed, plain, {}});
  else
    return false;
  return true;
}

// The volume does not apply to the bell of the display, so silence is checked here.
void LinuxSounds::beep() {
  if (!volume_.isSilent())
    player_.play({SoundRequest::Kind::themed, "bell", ringBell});
}

} // namespace tavrel
