#pragma once

#include "script/Calls.h"

namespace tavrel::script {

/// A command with its parameters; objects of applications are not fetched.
struct AdditionCall {
  Frame& frame;
  Value direct; ///< undefined when there is none
  std::vector<LabelledValue> parameters;

  /// Undefined without such a parameter.
  [[nodiscard]] Value parameter(std::string_view label) const;
};

/// A command that the engine itself knows how to do.
using Addition = Value (*)(const AdditionCall&);

/// Null for the commands of applications and of the desktop.
[[nodiscard]] Addition additionNamed(std::string_view command);

/// Whether the command is asked of the desktop rather than of an application.
[[nodiscard]] bool isOfDesktop(std::string_view command);

} // namespace tavrel::script
