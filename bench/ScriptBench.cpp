// What scripts cost: small programs of loops, texts, lists and calls, the same as in script.lua and
// script.tcl, and the whole way of a small script from its container and back.

#include "platform/linux/plists/PropertyListCodec.h"
#include "script/engine/Engine.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace tavrel::script {
namespace {

class SilentHost final : public Host {
public:
  [[nodiscard]] HostAnswer perform(const HostEvent&) override { return HostValue{}; }
  [[nodiscard]] double now() override { return 0; }
  [[nodiscard]] bool shouldStop() override { return false; }
};

// A benchmark that fails would measure how fast an error comes.
template <typename T> T sound(std::variant<T, ErrorReport> outcome) {
  if (std::holds_alternative<ErrorReport>(outcome))
    std::abort();
  return std::get<T>(std::move(outcome));
}

void runSource(benchmark::State& state, const char* source, const char* expected) {
  SilentHost host;
  Engine engine(host);
  const ScriptId script = sound(engine.loadSource(source, Author::user));
  for (auto _ : state)
    if (engine.run(script).description != expected)
      std::abort();
}

BENCHMARK_CAPTURE(runSource, additions, R"(
set n to 0
repeat 1000000 times
  set n to n + 1
end repeat
n)",
                  "1000000")
    ->Unit(benchmark::kMillisecond);

BENCHMARK_CAPTURE(runSource, texts, R"(
set t to ""
repeat 100000 times
  set t to t & "piece"
end repeat
length of t)",
                  "500000")
    ->Unit(benchmark::kMillisecond);

BENCHMARK_CAPTURE(runSource, lists, R"(
set L to {}
repeat with i from 1 to 100000
  set end of L to i
end repeat
set total to 0
repeat with x in L
  set total to total + x
end repeat
total)",
                  "5000050000")
    ->Unit(benchmark::kMillisecond);

BENCHMARK_CAPTURE(runSource, fib, R"(
on fib(n)
  if n < 2 then return n
  return fib(n - 1) + fib(n - 2)
end fib
fib(25))",
                  "75025")
    ->Unit(benchmark::kMillisecond);

// The file of a script that counts its runs and keeps a list.
Bytes smallContainer() {
  SilentHost host;
  Engine engine(host);
  const ScriptId script = sound(engine.loadSource(R"(
property runs : 0
property names : {"one", "two", "three"}
on greeting(who)
  return "Hello, " & who & "!"
end greeting
set runs to runs + 1
repeat with each in names
  greeting(each)
end repeat
runs)",
                                                  Author::user));
  return *encodePropertyList(*engine.container(script), PropertyListForm::binary);
}

void roundOfScript(benchmark::State& state) {
  SilentHost host;
  Engine engine(host);
  const Bytes file = smallContainer();
  for (auto _ : state) {
    const ScriptId script = sound(engine.loadContainer(*decodePropertyList(file).value));
    if (engine.run(script).description != "1")
      std::abort();
    benchmark::DoNotOptimize(
        encodePropertyList(*engine.container(script), PropertyListForm::binary));
    engine.dispose(script);
  }
}
BENCHMARK(roundOfScript)->Unit(benchmark::kMicrosecond);

void roundOfFile(benchmark::State& state) {
  std::string name = (std::filesystem::temp_directory_path() / "tavrel-bench-XXXXXX").string();
  ::close(::mkstemp(name.data()));
  const Bytes bytes = smallContainer();
  for (auto _ : state) {
    std::ofstream(name, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    std::ifstream file(name, std::ios::binary);
    const std::string read{std::istreambuf_iterator<char>(file), {}};
    benchmark::DoNotOptimize(read.size());
  }
  std::filesystem::remove(name);
}
BENCHMARK(roundOfFile)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace tavrel::script
