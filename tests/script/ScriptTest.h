#pragma once

#include "script/RecordingHost.h"
#include "script/engine/Engine.h"

#include <gtest/gtest.h>

namespace tavrel::script {

/// Runs sources on a desktop that only records.
class ScriptTest : public ::testing::Test {
protected:
  /// What the source's run gives, as a script would write it; "error N: message" when it fails.
  std::string result(const std::string& source, Author author = Author::user) {
    const RunResult run = outcome(source, author);
    return run.error ? "error " + std::to_string(run.error->number) + ": " + run.error->message
                     : run.description;
  }
  RunResult outcome(const std::string& source, Author author = Author::user) {
    const Engine::Loaded loaded = engine.loadSource(source, author);
    if (const auto* error = std::get_if<ErrorReport>(&loaded))
      return {*error, {}, {}};
    const ScriptId script = std::get<ScriptId>(loaded);
    const RunResult run = engine.run(script, {}, limits);
    engine.dispose(script);
    return run;
  }
  /// 0 when the source runs to its end.
  int errorOf(const std::string& source) {
    const RunResult run = outcome(source);
    return run.error ? run.error->number : 0;
  }

  RecordingHost host;
  Engine engine{host};
  Limits limits;
};

} // namespace tavrel::script
