#pragma once

#include "platform/Scripts.h"

namespace tavrel {

/// No scripts yet: every call fails, and a source says why.
class LinuxScripts final : public Scripts {
public:
  [[nodiscard]] ComponentInstance openDefaultComponent(std::uint32_t type,
                                                       std::uint32_t subtype) override;
  [[nodiscard]] LoadedScript load(ComponentInstance component, const std::string& path) override;
  [[nodiscard]] ExecutedScript execute(ComponentInstance component, OSAID script) override;
  OSAError dispose(ComponentInstance component, OSAID id) override;
  OSAError store(ComponentInstance component, OSAID script, const std::string& path) override;
  std::optional<SourceRun> runSource(const std::string& source, ScriptOrigin origin) override;
};

} // namespace tavrel
