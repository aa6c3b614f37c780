#pragma once

#include "platform/Scripts.h"
#include "platform/linux/scripts/LongRunningScripts.h"
#include "script/engine/Engine.h"

namespace tavrel {

/// What a run gave as other programs take it: a list with its texts and the paths of its files.
[[nodiscard]] AppleEventDescriptor descriptorOf(const script::HostValue& value);

/// A script of the application's own, loaded into an engine for as long as this lives.
class ResourceScript final : public NSAppleScript {
public:
  /// The engine and the long-running scripts must outlive this.
  ResourceScript(script::Engine& engine, script::ScriptId id,
                 LongRunningScripts& longRunningScripts)
      : engine_(engine), id_(id), longRunningScripts_(longRunningScripts) {}
  ~ResourceScript() override { engine_.dispose(id_); }
  ResourceScript(const ResourceScript&) = delete;
  ResourceScript& operator=(const ResourceScript&) = delete;

  std::optional<AppleEventDescriptor> execute() override;

private:
  script::Engine& engine_;
  script::ScriptId id_;
  LongRunningScripts& longRunningScripts_;
};

} // namespace tavrel
