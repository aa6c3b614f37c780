#pragma once

#include <functional>
#include <memory>
#include <string>

namespace tavrel {

/// A sound to play: a file, or a sound of the theme.
struct SoundRequest {
  enum class Kind { file, themed };
  Kind kind = Kind::file;
  std::string what;              ///< an absolute path, or a name of the sound theme
  std::function<void()> unheard; ///< called on the player's thread when it failed; must not block
};

/// Plays sounds on a thread of its own, because a sound server that does not answer blocks its
/// client for half a minute. The destructor waits a second for the thread, and then leaves it
/// behind.
class SoundPlayer {
public:
  SoundPlayer();
  ~SoundPlayer();
  SoundPlayer(const SoundPlayer&) = delete;
  SoundPlayer& operator=(const SoundPlayer&) = delete;

  /// Does not block. A sound that could not be started within a second is dropped.
  void play(SoundRequest request);

private:
  struct Shared;
  std::shared_ptr<Shared> shared_;
};

} // namespace tavrel
