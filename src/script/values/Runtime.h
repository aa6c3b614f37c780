#pragma once

#include "script/Host.h"
#include "script/ScriptError.h"
#include "script/values/ValueObjects.h"

#include <memory>
#include <random>

namespace tavrel::script {

/// Who wrote a source. One that the application itself puts together around a path may ask for few
/// commands (running/HostEvents.cpp), so that a path cannot smuggle another one in.
enum class Author : std::uint8_t { user, application };

/// Which differences between texts count when they are compared; `considering` and `ignoring` in a
/// script change this. Each field is true when that difference counts.
struct Considered {
  bool caseDifferences = false;
  bool whiteSpace = true;
  bool hyphens = true;
  bool punctuation = true;
  bool diacriticals = true;
  bool numericStrings = false; ///< whether digits compare as numbers, "9" before "10"
};

/// What a run may use.
struct Limits {
  std::uint64_t steps = ~std::uint64_t{0};    ///< see Runtime::step; one is about one statement
  std::size_t stack = std::size_t{3} << 20U;  ///< bytes of the native stack
  std::size_t heap = std::size_t{512} << 20U; ///< bytes that the values of the engine may hold
};

struct ScriptDefinition;

/// Parses and binds a source text, for `run script`: a function pointer, since the rooms that do so
/// stand above this one. Throws ScriptError.
using SourceBinder = std::shared_ptr<const ScriptDefinition> (*)(Heap& heap,
                                                                 const std::string& source);

/// What all scripts of one run share: its limits, its settings, and the makers of values.
class Runtime {
public:
  Runtime(Heap& runHeap, Host& runHost, SourceBinder binder, Author author, Limits limits);

  Heap& heap;
  Host& host;
  const SourceBinder bindSource;
  const Author author;
  Considered considered;
  Value delimiters; ///< `text item delimiters`: a text or a list of texts
  std::mt19937_64 random;

  /// Counts steps of work; whoever loops calls it. Throws ScriptError when the run has used up its
  /// steps (`timedOut`) or the host says to stop (`userCanceled`).
  void step(std::uint64_t count = 1) {
    steps_ += count;
    if (steps_ >= nextCheck_)
      check();
  }
  /// Whether the run has had all the steps it may take.
  [[nodiscard]] bool isUsedUp() const { return steps_ > limits_.steps; }
  /// Whoever recurses calls it. Throws ScriptError (`stackOverflow`) when the native stack runs
  /// short.
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
