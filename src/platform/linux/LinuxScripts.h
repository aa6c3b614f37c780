#pragma once

#include "platform/Scripts.h"
#include "platform/linux/ScriptFile.h"
#include "script/Engine.h"

#include <set>

namespace tavrel {

/// Compiled scripts and sources, run by our own scripting component. A container is storable where
/// its file is writable and holds the source; plain source text is never written over.
class LinuxScripts final : public Scripts {
public:
  /// The host must outlive this.
  explicit LinuxScripts(script::Host& host) : engine_(host) {}

  [[nodiscard]] ComponentInstance openDefaultComponent(std::uint32_t type,
                                                       std::uint32_t subtype) override;
  [[nodiscard]] LoadedScript load(ComponentInstance component, const std::string& path) override;
  [[nodiscard]] ExecutedScript execute(ComponentInstance component, OSAID script) override;
  OSAError dispose(ComponentInstance component, OSAID id) override;
  OSAError store(ComponentInstance component, OSAID script, const std::string& path) override;
  std::optional<SourceRun> runSource(const std::string& source, ScriptOrigin origin) override;

private:
  struct Script {
    script::ScriptId id = 0;
    PropertyListForm form = PropertyListForm::binary;
  };

  [[nodiscard]] bool isOpen(ComponentInstance component) const;
  [[nodiscard]] LoadedScript add(const ScriptFile& file, const script::Engine::Loaded& loaded);

  script::Engine engine_;
  ComponentInstance lastComponent_ = 0;
  OSAID lastId_ = 0;
  std::map<OSAID, Script> scripts_;
  std::set<OSAID> results_;
};

} // namespace tavrel
