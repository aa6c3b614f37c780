#pragma once

#include "script/Host.h"
#include "script/ScriptError.h"
#include "script/values/ValueObjects.h"

#include <memory>
#include <random>

namespace tavrel::script {

/// Who wrote a source: those that the application builds around a path may ask for little, so that
/// a path cannot smuggle a command in.
enum class Author : std::uint8_t { user, application };

/// Which differences between texts count.
struct Considered {
  bool caseDifferences = false;
  bool whiteSpace = true;
  bool hyphens = true;
  bool punctuation = true;
  bool diacriticals = true;
  bool numericStrings = false;
};

/// What a run may use.
struct Limits {
  std::uint64_t steps = ~std::uint64_t{0};
  std::size_t stack = std::size_t{3} << 20U;  ///< bytes of the native stack
  std::size_t heap = std::size_t{512} << 20U; ///< bytes that the values of the engine may hold
};

struct ScriptDefinition;

/// Makes a script that can run of its source text. Throws ScriptError.
using SourceBinder = std::shared_ptr<const ScriptDefinition> (*)(Heap& heap,
                                                                 const std::string& source);

/// The state of one run that all its scripts share.
class Runtime {
public:
  Runtime(Heap& runHeap, Host& runHost, SourceBinder binder, Author author, Limits limits);

  Heap& heap;
  Host& host;
  const SourceBinder bindSource;
  const Author author;
  Considered considered;
  Value delimiters; ///< AppleScript's text item delimiters: a text or a list of texts
  std::mt19937_64 random;

  /// Counts a step of work. Throws when the run used up its steps or is asked to stop.
  void step(std::uint64_t count = 1) {
    steps_ += count;
    if (steps_ >= nextCheck_)
      check();
  }
  /// Whether the run has had all the steps it may take.
  [[nodiscard]] bool isUsedUp() const { return steps_ > limits_.steps; }
  /// Throws when the native stack runs short.
  void guardStack() const;

  [[nodiscard]] Value text(std::string value) const;
  [[nodiscard]] Value list(std::vector<Value> values) const;
  [[nodiscard]] Value record(std::vector<Record::Entry> entries) const;
  [[nodiscard]] Value date(double seconds) const;
  [[nodiscard]] Value file(std::string path) const;

private:
  void check();

  Limits limits_;
  std::uint64_t steps_ = 0;
  std::uint64_t nextCheck_ = 0;
  std::uintptr_t stackStart_;
};

} // namespace tavrel::script
