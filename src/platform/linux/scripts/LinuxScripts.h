#pragma once

#include "platform/Scripts.h"
#include "platform/linux/scripts/LongRunningScripts.h"
#include "platform/linux/scripts/ScriptFile.h"
#include "script/engine/Engine.h"

#include <functional>
#include <set>

namespace tavrel {

/// Compiled scripts and sources, run by our own scripting component. A container is storable where
/// its file is writable and holds the source; plain source text is never written over. A file with
/// an interpreter line and the executable bit runs as a process of its own.
class LinuxScripts final : public Scripts {
public:
  /// Runs an executable script; the error that it ends with.
  using RunProgram = std::function<OSAError(const std::string& path)>;

  /// The host and the long-running scripts must outlive this.
  LinuxScripts(script::Host& host, LongRunningScripts& longRunningScripts, RunProgram runProgram)
      : engine_(host), longRunningScripts_(longRunningScripts), runProgram_(std::move(runProgram)) {
  }

  [[nodiscard]] ComponentInstance openDefaultComponent(std::uint32_t type,
                                                       std::uint32_t subtype) override;
  [[nodiscard]] LoadedScript load(ComponentInstance component, const std::string& path) override;
  [[nodiscard]] ExecutedScript execute(ComponentInstance component, OSAID script) override;
  OSAError dispose(ComponentInstance component, OSAID id) override;
  OSAError store(ComponentInstance component, OSAID script, const std::string& path) override;
  [[nodiscard]] std::unique_ptr<NSAppleScript>
  initWithContentsOfFile(const std::string& path) override;
  std::optional<SourceRun> runSource(const std::string& source) override;
  std::optional<SourceRun> runOwnSource(const OwnSource& source) override;

private:
  struct Script {
    script::ScriptId id = 0; ///< 0 for an executable script
    std::string path;
    PropertyListForm form = PropertyListForm::binary;
  };

  [[nodiscard]] bool isOpen(ComponentInstance component) const;
  [[nodiscard]] LoadedScript add(const std::string& path, const ScriptFile& file,
                                 const script::Engine::Loaded& loaded);
  [[nodiscard]] OSAError run(const Script& script);
  [[nodiscard]] SourceRun run(const std::string& source, script::Author author);

  script::Engine engine_;
  LongRunningScripts& longRunningScripts_;
  RunProgram runProgram_;
  ComponentInstance lastComponent_ = 0;
  OSAID lastId_ = 0;
  std::map<OSAID, Script> scripts_;
  std::set<OSAID> results_;
};

} // namespace tavrel
