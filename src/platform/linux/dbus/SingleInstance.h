#pragma once

namespace tavrel {

/// Registers the program's name on the session bus, which one process of a session can have.
class SingleInstance final {
public:
  SingleInstance();
  ~SingleInstance();
  SingleInstance(const SingleInstance&) = delete;
  SingleInstance& operator=(const SingleInstance&) = delete;

  /// False when another process holds the name. Without a session bus every process is the first.
  [[nodiscard]] bool isFirst() const { return first_; }

  /// Asks the first one to pop up its menu; false when it does not answer within a few seconds.
  [[nodiscard]] bool askFirstToPopUp() const;

private:
  bool first_ = true;
};

} // namespace tavrel
