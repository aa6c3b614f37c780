#pragma once

#include <string>

namespace tavrel {

/// What the person hears. Playing never waits for the end of a sound.
class Sounds {
public:
  virtual ~Sounds() = default;
  /// False when there is no sound of that name; a desktop without sound plays nothing and says
  /// true.
  virtual bool play(const std::string& name) = 0;
  /// The system beep.
  virtual void beep() = 0;
};

} // namespace tavrel
