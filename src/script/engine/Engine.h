#pragma once

#include "base/PropertyList.h"
#include "script/Host.h"
#include "script/engine/ErrorReport.h"
#include "script/syntax/SyntaxTree.h"
#include "script/values/Runtime.h"
#include "script/values/ScriptObject.h"

#include <map>
#include <variant>

namespace tavrel::script {

/// A script that is loaded; 0 is none.
using ScriptId = std::uint32_t;

/// How a run ended: with a value or with an error.
struct RunResult {
  std::optional<ErrorReport> error;
  HostValue value;         ///< `missing value` when the script ended without one
  std::string description; ///< the value as a script would write it
};

/// The scripting component: loads scripts, runs them and keeps what their properties became. It
/// never throws, and it is not called again from inside a run but for the host's own sake.
class Engine {
public:
  explicit Engine(Host& host);
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;
  ~Engine();

  using Loaded = std::variant<ScriptId, ErrorReport>;

  /// A script from its source text.
  [[nodiscard]] Loaded loadSource(const std::string& source, Author author);
  /// A script from its container, as `container` makes it. A damaged one is an error
  /// (`corruptScript`).
  [[nodiscard]] Loaded loadContainer(const PropertyList& container);

  [[nodiscard]] RunResult run(ScriptId script, const std::vector<std::string>& arguments = {},
                              Limits limits = {});

  /// The script with its properties as they are now: a dictionary with "source" (unless the script
  /// came without), "compiled" (data) and "properties". Nothing for an id that is not loaded.
  [[nodiscard]] std::optional<PropertyList> container(ScriptId script) const;

  void dispose(ScriptId script);

private:
  struct Script {
    std::optional<std::string> source;
    Author author = Author::user;
    Node tree;
    std::shared_ptr<const ScriptDefinition> definition;
    PropertyList::Dictionary properties;
  };

  class Running;

  [[nodiscard]] Loaded add(Script script);
  void restore(Runtime& runtime, ScriptObject& object, const Script& script) const;
  static void keep(const ScriptObject& object, Script& script);

  Host& host_;
  Heap heap_;
  std::map<ScriptId, Script> scripts_;
  ScriptId last_ = 0;
  int runs_ = 0; ///< inside one another
};

} // namespace tavrel::script
