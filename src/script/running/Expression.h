#pragma once

#include "script/running/Frame.h"

#include <memory>

namespace tavrel::script {

/// An expression, ready to run. The functions that make them stand in ValueExpressions.h,
/// Variables.h, OperatorExpressions.h, PropertyExpression.h, ElementExpressions.h and
/// CallExpressions.h; a null ExpressionPtr stands for what the source leaves out. All throw
/// ScriptError.
class Expression {
public:
  Expression() = default;
  Expression(const Expression&) = delete;
  Expression& operator=(const Expression&) = delete;
  virtual ~Expression() = default;

  [[nodiscard]] virtual Value evaluate(Frame& frame) const = 0;

  /// The same, but an object of an application stays a specifier, and a reference a reference:
  /// neither is asked for its value.
  [[nodiscard]] virtual Value evaluateUnfetched(Frame& frame) const { return evaluate(frame); }

  /// The value of `a reference to` this. Throws (`cannotCoerce`) for the variables of a handler,
  /// which do not outlive their call; gives the value of what cannot be assigned to.
  [[nodiscard]] virtual Value makeReference(Frame& frame) const { return evaluateUnfetched(frame); }

  /// What a reference to a property or element of this starts from: a reference where there can be
  /// one, else the value.
  [[nodiscard]] virtual Value referenceBase(Frame& frame) const { return makeReference(frame); }

  /// The value as an argument of a handler: a variable that holds a reference gives the reference.
  [[nodiscard]] virtual Value evaluateArgument(Frame& frame) const { return evaluate(frame); }

  /// Stores the value in the variable, property or element; throws (`cannotSet`) for all else.
  virtual void assign(Frame& frame, Value value) const;

  /// Moves a text or a list out of a variable, so that nobody shares it and it can be appended to
  /// in place; elsewhere a plain evaluation. Whoever takes it assigns it again.
  [[nodiscard]] virtual Value takeValue(Frame& frame) const { return evaluate(frame); }

  Span span; ///< in the source
};
using ExpressionPtr = std::unique_ptr<const Expression>;

/// An expression behind a label: an entry of a record or an argument. The label is a symbol.
using LabelledExpression = std::pair<const std::string*, ExpressionPtr>;

} // namespace tavrel::script
