#pragma once

#include <atomic>
#include <memory>
#include <string>

namespace tavrel {

/// Watches over scripts while the application waits for them. One that runs for long is named in a
/// desktop notification that offers to stop it; without a notification service nobody is told.
class LongRunningScripts {
public:
  explicit LongRunningScripts(double patienceSeconds = 10);
  LongRunningScripts(const LongRunningScripts&) = delete;
  LongRunningScripts& operator=(const LongRunningScripts&) = delete;
  ~LongRunningScripts();

  /// A script runs for as long as this lives; those that it starts belong to it.
  class Run {
  public:
    Run(LongRunningScripts& runs, const std::string& name);
    ~Run();
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

  private:
    LongRunningScripts& runs_;
    bool isOutermost_;
  };

  /// Whether the person wants the script that runs now to end.
  [[nodiscard]] bool shouldStop() const { return stop_; }

private:
  class Watch;
  double patience_;
  std::atomic<bool> stop_ = false;
  std::unique_ptr<Watch> watch_;
};

} // namespace tavrel
