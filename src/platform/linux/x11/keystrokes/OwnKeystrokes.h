#pragma once

#include "platform/linux/x11/keyboard/ServerKey.h"

#include <functional>
#include <utility>

namespace tavrel {

/// Separates keystrokes that this program posts from those of the user and of other programs. Code
/// that posts key events encloses them in `begin` and `end`; before `end` the server must have
/// carried them out (a round trip on the connection that posted them).
class OwnKeystrokes {
public:
  void begin() {
    notifyBoundary();
    ++depth_;
  }
  void end() {
    notifyBoundary();
    --depth_;
  }
  [[nodiscard]] bool areBeingPosted() const { return depth_ > 0; }

  /// Called at each boundary, before the answer of `areBeingPosted` changes, to read the events
  /// that the old answer holds for.
  void setBoundaryListener(std::function<void()> listener) { listener_ = std::move(listener); }

  enum class HotKeys { suspended, active };
  /// Suspends those of our hot keys that lie on some keys, or has them act again.
  using HotKeySwitch = std::function<void(HotKeys, const ServerKeySet& keys)>;
  void setHotKeySwitch(HotKeySwitch hotKeys) { hotKeys_ = std::move(hotKeys); }

  /// Runs `post`, which posts these keys and returns when the server has carried them out. None of
  /// our hot keys catches them.
  template <typename Post> void postPastHotKeys(const ServerKeySet& keys, Post post) {
    if (hotKeys_)
      hotKeys_(HotKeys::suspended, keys);
    post();
    if (hotKeys_)
      hotKeys_(HotKeys::active, keys);
  }

private:
  void notifyBoundary() const {
    if (listener_)
      listener_();
  }

  int depth_ = 0;
  std::function<void()> listener_;
  HotKeySwitch hotKeys_;
};

} // namespace tavrel
