#include "script/running/Expression.h"

namespace tavrel::script {

// NOLINTNEXTLINE(performance-unnecessary-value-param): the overrides keep the value
void Expression::assign(Frame&, Value) const {
  throw ScriptError{errors::cannotSet, "Can’t set that: it is no variable, property or element.",
                    span};
}

} // namespace tavrel::script
