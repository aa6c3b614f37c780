#pragma once

#include "platform/Scripts.h"

#include <memory>

namespace tavrel {

/// The system's scripting components, and its own script object for sources.
class MacScripts final : public Scripts {
public:
  MacScripts();
  MacScripts(const MacScripts&) = delete;
  MacScripts& operator=(const MacScripts&) = delete;
  ~MacScripts() override;

  ComponentInstance openDefaultComponent(std::uint32_t type, std::uint32_t subtype) override;
  LoadedScript load(ComponentInstance component, const std::string& path) override;
  ExecutedScript execute(ComponentInstance component, OSAID script) override;
  OSAError dispose(ComponentInstance component, OSAID id) override;
  OSAError store(ComponentInstance component, OSAID script, const std::string& path) override;
  std::unique_ptr<NSAppleScript> initWithContentsOfFile(const std::string& path) override;
  std::optional<SourceRun> runSource(const std::string& source) override;
  std::optional<SourceRun> runOwnSource(const OwnSource& source) override;

private:
  struct Components;
  std::unique_ptr<Components> components_;
};

} // namespace tavrel
