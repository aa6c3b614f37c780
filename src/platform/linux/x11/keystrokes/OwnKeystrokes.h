#pragma once

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

private:
  void notifyBoundary() const {
    if (listener_)
      listener_();
  }

  int depth_ = 0;
  std::function<void()> listener_;
};

} // namespace tavrel
