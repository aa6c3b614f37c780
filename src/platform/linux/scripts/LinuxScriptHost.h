#pragma once

#include "platform/linux/scripts/LongRunningScripts.h"
#include "platform/linux/scripts/ScriptDesktop.h"

namespace tavrel {

/// The Linux desktop as scripts see it.
class LinuxScriptHost final : public script::Host {
public:
  LinuxScriptHost(ScriptDesktop desktop, const LongRunningScripts& runs)
      : desktop_(std::move(desktop)), runs_(runs) {}

  [[nodiscard]] script::HostAnswer perform(const script::HostEvent& event) override;
  [[nodiscard]] double now() override;
  [[nodiscard]] bool shouldStop() override;
  void runEnded() override { desktop_.openFiles.clear(); }

private:
  [[nodiscard]] script::HostAnswer addition(const script::HostEvent& event);
  [[nodiscard]] script::HostAnswer delay(const script::HostEvent& event);

  ScriptDesktop desktop_;
  const LongRunningScripts& runs_;
};

} // namespace tavrel
