#pragma once

#include "script/running/HandlerCalls.h"

namespace tavrel::script {

/// The call of a scripting addition. Its parameters may be specifiers of an application's objects,
/// which are not fetched; references have given way to what they refer to.
struct AdditionCall {
  Frame& frame;
  Value direct; ///< undefined when there is none
  std::vector<LabelledValue> parameters;

  /// Undefined without such a parameter.
  [[nodiscard]] Value parameter(std::string_view label) const {
    for (const LabelledValue& each : parameters)
      if (*each.label == label)
        return each.value;
    return {};
  }
};

/// A command that the engine itself knows how to do, as `current date`.
using ScriptingAddition = Value (*)(const AdditionCall&);

} // namespace tavrel::script
