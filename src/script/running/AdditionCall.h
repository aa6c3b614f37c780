#pragma once

#include "script/running/HandlerCalls.h"

namespace tavrel::script {

/// A command with its parameters; objects of applications are not fetched.
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

/// A command that the engine itself knows how to do.
using Addition = Value (*)(const AdditionCall&);

} // namespace tavrel::script
