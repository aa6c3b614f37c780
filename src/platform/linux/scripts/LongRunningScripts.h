#pragma once

#include <atomic>
#include <memory>
#include <string>

namespace tavrel {

/// The application waits for scripts. For one that runs for long, a desktop notification offers to
/// stop it; without a notification service there is no such offer.
class LongRunningScripts {
public:
  explicit LongRunningScripts(double secondsUntilNotification = 10);
  LongRunningScripts(const LongRunningScripts&) = delete;
  LongRunningScripts& operator=(const LongRunningScripts&) = delete;
  ~LongRunningScripts();

  /// To be held while a script runs. Scripts that this one runs belong to it: they have no
  /// notification of their own.
  class RunningScript {
  public:
    RunningScript(LongRunningScripts& scripts, const std::string& name);
    ~RunningScript();
    RunningScript(const RunningScript&) = delete;
    RunningScript& operator=(const RunningScript&) = delete;

  private:
    LongRunningScripts& scripts_;
    bool isOutermost_;
  };

  /// Whether the user chose to stop the script that runs now.
  [[nodiscard]] bool shouldStop() const { return shouldStop_; }

private:
  class NotificationThread;
  double secondsUntilNotification_;
  std::atomic<bool> shouldStop_ = false;
  std::unique_ptr<NotificationThread> notificationThread_; ///< while a script runs
};

} // namespace tavrel
