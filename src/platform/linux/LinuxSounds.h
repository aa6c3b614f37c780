#pragma once

#include "platform/Sounds.h"

struct ca_context;

namespace tavrel {

/// Our own sounds by name (whatever ending they are asked for with), then those of the sound theme.
/// Without a sound server nothing is heard.
class LinuxSounds final : public Sounds {
public:
  /// Sound files are looked for in the folder's "sounds".
  explicit LinuxSounds(const std::string& resourceFolder);
  ~LinuxSounds() override;
  LinuxSounds(const LinuxSounds&) = delete;
  LinuxSounds& operator=(const LinuxSounds&) = delete;

  bool play(const std::string& name) override;
  void beep() override;

private:
  /// False when the sound server knows no such sound.
  bool send(const char* property, const std::string& value);

  std::string folder_;
  ca_context* context_ = nullptr;
};

} // namespace tavrel
