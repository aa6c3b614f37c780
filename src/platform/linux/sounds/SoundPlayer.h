#pragma once

#include <functional>
#include <memory>
#include <string>

namespace tavrel {

/// A sound to play: a file, or a sound of the theme.
struct SoundRequest {
  enum class Kind { file, themed };
  Kind kind = Kind::file;
  std::string what; ///< an absolute path, or a name of the sound theme
  std::function<void()>
      unheard; ///< called on the player's thread when it cannot be played; never waits
};

/// Plays sounds on a thread of its own, since a sound server that does not answer keeps its client
/// waiting for half a minute. A thread that still waits a second after the end is left
/// behind.
class SoundPlayer {
public:
  SoundPlayer();
  ~SoundPlayer();
  SoundPlayer(const SoundPlayer&) = delete;
  SoundPlayer& operator=(const SoundPlayer&) = delete;

  /// Never waits. A sound that could not be started within a second is not played any more.
  void play(SoundRequest request);

private:
  struct Shared;
  std::shared_ptr<Shared> shared_;
};

} // namespace tavrel
