#pragma once

#include "script/engine/Engine.h"

#include <cstdlib>

namespace tavrel::script {

/// A desktop that understands nothing.
class RefusingHost final : public Host {
public:
  [[nodiscard]] HostAnswer perform(const HostEvent& event) override {
    return HostError{errors::notUnderstood, event.command};
  }
  [[nodiscard]] double now() override { return 0; }
  [[nodiscard]] bool shouldStop() override { return false; }
};

inline void demand(bool holds) {
  if (!holds)
    std::abort();
}

/// Runs a script, if it could be loaded, within limits that no script may get around.
inline void runBriefly(Engine& engine, const Engine::Loaded& loaded) {
  Limits limits;
  limits.steps = 20000;
  limits.heap = std::size_t{64} << 20U;
  if (const auto* script = std::get_if<ScriptId>(&loaded))
    (void)engine.run(*script, {"argument"}, limits);
}

} // namespace tavrel::script
