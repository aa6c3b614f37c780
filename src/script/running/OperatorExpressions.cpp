#include "script/running/OperatorExpressions.h"

#include "script/values/Arithmetic.h"
#include "script/values/Coercion.h"
#include "script/values/Description.h"
#include "script/values/Operators.h"

namespace tavrel::script {
namespace {

class Binary final : public Expression {
public:
  Binary(Operator function, ExpressionPtr left, ExpressionPtr right)
      : function_(function), left_(std::move(left)), right_(std::move(right)) {}
  Value evaluate(Frame& frame) const override {
    const Value left = left_->evaluate(frame);
    return function_(frame.runtime, left, right_->evaluate(frame));
  }

private:
  Operator function_;
  ExpressionPtr left_;
  ExpressionPtr right_;
};

// The operators that loops use most, with a short way for integers: `Short::apply` answers whether
// it could work out the result.
template <typename Short> class Quick final : public Expression {
public:
  Quick(Operator function, ExpressionPtr left, ExpressionPtr right)
      : function_(function), left_(std::move(left)), right_(std::move(right)) {}
  Value evaluate(Frame& frame) const override {
    const Value left = left_->evaluate(frame);
    const Value right = right_->evaluate(frame);
    Value result;
    if (left.is(ValueKind::integer) && right.is(ValueKind::integer) &&
        Short::apply(left.integer(), right.integer(), result))
      return result;
    return function_(frame.runtime, left, right);
  }

private:
  Operator function_;
  ExpressionPtr left_;
  ExpressionPtr right_;
};

struct QuickSum {
  static bool apply(std::int64_t a, std::int64_t b, Value& result) {
    std::int64_t sum = 0;
    const bool fits = !__builtin_add_overflow(a, b, &sum);
    result = Value::integer(sum);
    return fits;
  }
};

struct QuickDifference {
  static bool apply(std::int64_t a, std::int64_t b, Value& result) {
    std::int64_t difference = 0;
    const bool fits = !__builtin_sub_overflow(a, b, &difference);
    result = Value::integer(difference);
    return fits;
  }
};

struct QuickLess {
  static bool apply(std::int64_t a, std::int64_t b, Value& result) {
    result = Value::boolean(a < b);
    return true;
  }
};

struct QuickEqual {
  static bool apply(std::int64_t a, std::int64_t b, Value& result) {
    result = Value::boolean(a == b);
    return true;
  }
};

// `and` and `or` evaluate their right side only when the left one is not `decisive`.
class Logical final : public Expression {
public:
  Logical(bool decisive, ExpressionPtr left, ExpressionPtr right)
      : decisive_(decisive), left_(std::move(left)), right_(std::move(right)) {}
  Value evaluate(Frame& frame) const override {
    if (booleanOf(left_->evaluate(frame)) == decisive_)
      return Value::boolean(decisive_);
    return Value::boolean(booleanOf(right_->evaluate(frame)));
  }

private:
  bool decisive_;
  ExpressionPtr left_;
  ExpressionPtr right_;
};

template <typename Function> class Unary final : public Expression {
public:
  Unary(Function function, ExpressionPtr operand)
      : function_(function), operand_(std::move(operand)) {}
  Value evaluate(Frame& frame) const override {
    return function_(frame, operand_->evaluate(frame));
  }

private:
  Function function_;
  ExpressionPtr operand_;
};

template <typename Function>
ExpressionPtr unaryExpression(Function function, ExpressionPtr operand) {
  return std::make_unique<Unary<Function>>(function, std::move(operand));
}

class Cast final : public Expression {
public:
  Cast(ExpressionPtr value, ExpressionPtr type)
      : value_(std::move(value)), type_(std::move(type)) {}
  Value evaluate(Frame& frame) const override {
    const Value type = type_->evaluate(frame);
    const Value value = value_->evaluate(frame);
    if (!type.is(ValueKind::typeName))
      throw ScriptError{
          errors::cannotCoerce, std::string(described(type)).append(" is no class."), {}};
    return coerced(frame.runtime, value, type.name());
  }

private:
  ExpressionPtr value_;
  ExpressionPtr type_;
};

} // namespace

ExpressionPtr operatorExpression(std::string_view name, ExpressionPtr left, ExpressionPtr right) {
  if (name == "and" || name == "or")
    return std::make_unique<Logical>(name == "or", std::move(left), std::move(right));
  const Operator function = operatorNamed(name);
  if (!function)
    throw ScriptError{errors::corruptScript, "The script has an unknown operator."};
  if (name == "+")
    return std::make_unique<Quick<QuickSum>>(function, std::move(left), std::move(right));
  if (name == "-")
    return std::make_unique<Quick<QuickDifference>>(function, std::move(left), std::move(right));
  if (name == "<")
    return std::make_unique<Quick<QuickLess>>(function, std::move(left), std::move(right));
  if (name == "=")
    return std::make_unique<Quick<QuickEqual>>(function, std::move(left), std::move(right));
  return std::make_unique<Binary>(function, std::move(left), std::move(right));
}

ExpressionPtr negationExpression(ExpressionPtr operand) {
  return unaryExpression(
      [](Frame& frame, const Value& value) { return negated(frame.runtime, value); },
      std::move(operand));
}

ExpressionPtr notExpression(ExpressionPtr operand) {
  return unaryExpression(
      [](Frame&, const Value& value) { return Value::boolean(!booleanOf(value)); },
      std::move(operand));
}

ExpressionPtr castExpression(ExpressionPtr value, ExpressionPtr type) {
  return std::make_unique<Cast>(std::move(value), std::move(type));
}

} // namespace tavrel::script
