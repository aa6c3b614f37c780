#pragma once

#include <cstdint>
#include <string>

namespace tavrel {

/// What the user hears. Playing never waits for the end of a sound.
class Sounds {
public:
  virtual ~Sounds() = default;
  /// False when there is no sound of that name; a desktop without sound plays nothing and says
  /// true.
  virtual bool play(const std::string& name) = 0;
  /// The system beep.
  virtual void beep() = 0;
  /// How loud the beep is, in the desktop's own measure; 0 is silent. A desktop without such a
  /// volume says 0 and forgets what is set.
  [[nodiscard]] virtual std::int32_t alertVolume() = 0;
  virtual void setAlertVolume(std::int32_t volume) = 0;
};

} // namespace tavrel
