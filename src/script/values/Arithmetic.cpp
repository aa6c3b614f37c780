#include "script/values/Arithmetic.h"

#include "script/values/Coercion.h"

#include <cmath>

namespace tavrel::script {
namespace {

Value finite(double value) {
  if (!std::isfinite(value))
    throw ScriptError{errors::numberTooLarge, "The result of a numeric operation was too large."};
  return Value::real(value);
}

// `whole` answers whether the result outgrows 64 bits; `real` then works on reals.
template <typename Whole, typename Real>
Value computed(Runtime& runtime, const Value& a, const Value& b, Whole whole, Real real) {
  const Value left = numberOf(runtime, a);
  const Value right = numberOf(runtime, b);
  std::int64_t result = 0;
  if (left.is(ValueKind::integer) && right.is(ValueKind::integer) &&
      !whole(left.integer(), right.integer(), &result))
    return Value::integer(result);
  return finite(real(left.number(), right.number()));
}

void refuseZero(const Value& value) {
  if (value.number() == 0)
    throw ScriptError{errors::dividedByZero, "Can’t divide by zero."};
}

// Division by -1 is left to reals: the smallest integer would outgrow 64 bits.
bool areWhole(const Value& a, const Value& b) {
  return a.is(ValueKind::integer) && b.is(ValueKind::integer) && b.integer() != -1;
}

} // namespace

Value sum(Runtime& runtime, const Value& a, const Value& b) {
  if (const auto* date = a.as<Date>())
    return runtime.date(date->seconds + numberOf(runtime, b).number());
  return computed(
      runtime, a, b,
      [](std::int64_t x, std::int64_t y, std::int64_t* z) {
        return __builtin_add_overflow(x, y, z);
      },
      [](double x, double y) { return x + y; });
}

Value difference(Runtime& runtime, const Value& a, const Value& b) {
  const auto* date = a.as<Date>();
  const auto* earlier = b.as<Date>();
  if (date && earlier)
    return coerced(runtime, Value::real(date->seconds - earlier->seconds), "integer");
  if (date)
    return runtime.date(date->seconds - numberOf(runtime, b).number());
  return computed(
      runtime, a, b,
      [](std::int64_t x, std::int64_t y, std::int64_t* z) {
        return __builtin_sub_overflow(x, y, z);
      },
      [](double x, double y) { return x - y; });
}

Value product(Runtime& runtime, const Value& a, const Value& b) {
  return computed(
      runtime, a, b,
      [](std::int64_t x, std::int64_t y, std::int64_t* z) {
        return __builtin_mul_overflow(x, y, z);
      },
      [](double x, double y) { return x * y; });
}

Value quotient(Runtime& runtime, const Value& a, const Value& b) {
  const Value left = numberOf(runtime, a);
  const Value right = numberOf(runtime, b);
  refuseZero(right);
  return finite(left.number() / right.number());
}

Value wholeQuotient(Runtime& runtime, const Value& a, const Value& b) {
  const Value left = numberOf(runtime, a);
  const Value right = numberOf(runtime, b);
  refuseZero(right);
  if (areWhole(left, right))
    return Value::integer(left.integer() / right.integer());
  const double result = std::trunc(left.number() / right.number());
  return std::fabs(result) < integerRange ? Value::integer(static_cast<std::int64_t>(result))
                                          : finite(result);
}

Value remainderOf(Runtime& runtime, const Value& a, const Value& b) {
  const Value left = numberOf(runtime, a);
  const Value right = numberOf(runtime, b);
  refuseZero(right);
  if (areWhole(left, right))
    return Value::integer(left.integer() % right.integer());
  const double result = std::fmod(left.number(), right.number());
  const bool whole = left.is(ValueKind::integer) && right.is(ValueKind::integer);
  return whole ? Value::integer(static_cast<std::int64_t>(result)) : finite(result);
}

Value power(Runtime& runtime, const Value& a, const Value& b) {
  return finite(std::pow(numberOf(runtime, a).number(), numberOf(runtime, b).number()));
}

Value negated(Runtime& runtime, const Value& value) {
  return difference(runtime, Value::integer(0), value);
}

} // namespace tavrel::script
