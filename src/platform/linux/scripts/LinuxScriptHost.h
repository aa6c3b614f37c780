#pragma once

#include "platform/linux/scripts/LongRunningScripts.h"
#include "platform/linux/scripts/ScriptDesktop.h"

namespace tavrel {

/// Answers what scripts ask of the desktop: hands each event to the commands of scripting additions
/// or to the application that it is for.
class LinuxScriptHost final : public script::Host {
public:
  LinuxScriptHost(ScriptDesktop desktop, const LongRunningScripts& longRunningScripts)
      : desktop_(std::move(desktop)), longRunningScripts_(longRunningScripts) {}

  [[nodiscard]] script::HostAnswer perform(const script::HostEvent& event) override;
  [[nodiscard]] double now() override;
  [[nodiscard]] bool shouldStop() override;
  void runEnded() override { desktop_.openFiles.clear(); }

private:
  [[nodiscard]] script::HostAnswer runAddition(const script::HostEvent& event);
  [[nodiscard]] script::HostAnswer delay(const script::HostEvent& event);

  ScriptDesktop desktop_;
  const LongRunningScripts& longRunningScripts_;
};

} // namespace tavrel
