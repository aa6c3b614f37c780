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

/// Names a script that is loaded; 0 is none.
using ScriptId = std::uint32_t;

/// How a run ended. With an error the value is `missing value` and the description empty.
struct RunResult {
  std::optional<ErrorReport> error;
  HostValue value;         ///< `missing value` when there is none, or none that plain data can hold
  std::string description; ///< the value as a script would write it
};

/// The scripting component: loads scripts, runs them, and keeps the values that their properties
/// have after a run. It never throws. Not for several threads; the host may call it from inside
/// `perform`, but must not dispose of a script that runs.
class Engine {
public:
  explicit Engine(Host& host);
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;
  ~Engine();

  using Loaded = std::variant<ScriptId, ErrorReport>;

  /// Loads a script from its source text, in UTF-8. One that is not understood is an error
  /// (`syntax` and others).
  [[nodiscard]] Loaded loadSource(const std::string& source, Author author);
  /// Loads a script from a container, as `container` gives it. A damaged one is an error
  /// (`corruptScript`).
  [[nodiscard]] Loaded loadContainer(const PropertyList& container);

  /// Runs the script's `run` handler with the arguments as one list of texts. The properties
  /// keepProperties what a run without an error made of them. An id that is not loaded is an error
  /// (`corruptScript`).
  [[nodiscard]] RunResult run(ScriptId script, const std::vector<std::string>& arguments = {},
                              Limits limits = {});

  /// The script with its properties as they are now, to be kept in a file: a dictionary with
  /// "source" (unless the script came without), "compiled" (data, see SyntaxTreeCodec.h) and
  /// "properties" (see StoredValues.h). Nothing for an id that is not loaded.
  [[nodiscard]] std::optional<PropertyList> container(ScriptId script) const;

  /// Unloads the script; no effect for an id that is not loaded.
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
  void restoreProperties(Runtime& runtime, ScriptObject& object, const Script& script) const;
  static void keepProperties(const ScriptObject& object, Script& script);

  Host& host_;
  Heap heap_;
  std::map<ScriptId, Script> scripts_;
  ScriptId last_ = 0;
  int runs_ = 0; ///< how many run inside one another
};

} // namespace tavrel::script
