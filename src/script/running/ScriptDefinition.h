#pragma once

#include "script/running/Statement.h"

#include <unordered_map>

namespace tavrel::script {

struct Parameter {
  const std::string* label = nullptr; ///< null for one by position; "of" for the direct one
  ExpressionPtr target;               ///< the variable, or pattern of variables, that it is put in
};

struct Handler {
  const std::string* name = nullptr;
  std::vector<Parameter> parameters;
  std::size_t localCount = 0;
  Block body;
  Span span;
};

/// A bound script, ready to run: what all its objects have in common.
struct ScriptDefinition : ScriptOutline {
  std::size_t propertyCount = 0;            ///< of the fields; the properties are the first of them
  std::vector<ExpressionPtr> initialValues; ///< by field; null for variables without one
  std::size_t localCount = 0;               ///< that the initial values need

  /// Null without a handler of that name.
  [[nodiscard]] const Handler* handler(const std::string* handlerName) const;
  /// A handler of a name that none has yet.
  void add(Handler handler);

private:
  std::vector<Handler> handlers_;
  std::unordered_map<const std::string*, std::size_t> indices_; ///< of the handlers, by name
};

} // namespace tavrel::script
