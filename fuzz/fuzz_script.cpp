#include "ScriptRun.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tavrel::script;
  const std::string source(reinterpret_cast<const char*>(data), size);
  RefusingHost host;
  Engine engine(host);
  const Engine::Loaded loaded = engine.loadSource(source, Author::user);
  if (const auto* error = std::get_if<ErrorReport>(&loaded)) {
    (void)errorDictionary(*error, source);
    return 0;
  }
  runBriefly(engine, loaded);
  // What was loaded once can be kept and loaded again.
  const auto container = engine.container(std::get<ScriptId>(loaded));
  const Engine::Loaded again = engine.loadContainer(*container);
  demand(std::holds_alternative<ScriptId>(again));
  runBriefly(engine, again);
  return 0;
}
