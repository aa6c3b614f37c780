#pragma once

#include <functional>
#include <utility>

namespace tavrel {

/// Tells what this program types from what a person types. Whoever posts key events encloses them
/// in `begin` and `end`; by `end` the server must have done them (a round trip on the connection
/// that posted them).
class OwnKeystrokes {
public:
  void begin() {
    tellBoundary();
    ++depth_;
  }
  void end() {
    tellBoundary();
    --depth_;
  }
  [[nodiscard]] bool areBeingPosted() const { return depth_ > 0; }

  /// Called at each boundary, before the answer of `areBeingPosted` changes: what the server has
  /// told of so far is to be seen in the light of the old answer.
  void setBoundaryListener(std::function<void()> listener) { boundary_ = std::move(listener); }

private:
  void tellBoundary() const {
    if (boundary_)
      boundary_();
  }

  int depth_ = 0;
  std::function<void()> boundary_;
};

} // namespace tavrel
