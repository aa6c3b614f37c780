#include "script/values/Operators.h"

#include "script/values/Coercion.h"

#include <array>
#include <cmath>

namespace tavrel::script {
namespace {

Value finite(double value) {
  if (!std::isfinite(value))
    throw ScriptError{errors::numberTooLarge, "The result of a numeric operation was too large."};
  return Value::real(value);
}

using WholeOperation = bool (*)(std::int64_t, std::int64_t, std::int64_t&);

// Whole numbers stay whole until they outgrow 64 bits; then they become reals.
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

Value product(Runtime& runtime, const Value& a, const Value& b) {
  return computed(
      runtime, a, b,
      [](std::int64_t x, std::int64_t y, std::int64_t* z) {
        return __builtin_mul_overflow(x, y, z);
      },
      [](double x, double y) { return x * y; });
}

void refuseZero(const Value& value) {
  if (value.number() == 0)
    throw ScriptError{errors::dividedByZero, "Can’t divide by zero."};
}

Value quotient(Runtime& runtime, const Value& a, const Value& b) {
  const Value left = numberOf(runtime, a);
  const Value right = numberOf(runtime, b);
  refuseZero(right);
  return finite(left.number() / right.number());
}

bool areWhole(const Value& a, const Value& b) {
  return a.is(ValueKind::integer) && b.is(ValueKind::integer) && b.integer() != -1;
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

Value joinedTexts(Runtime& runtime, const Value& a, const Value& b) {
  std::string text = textOf(runtime, a);
  text += textOf(runtime, b);
  runtime.step(text.size() / 64);
  return runtime.text(std::move(text));
}

Value joinedLists(Runtime& runtime, const Value& a, const Value& b) {
  std::vector<Value> values = coerced(runtime, a, "list").as<List>()->values();
  const Value right = coerced(runtime, b, "list");
  const std::vector<Value>& more = right.as<List>()->values();
  runtime.step((values.size() + more.size()) / 16);
  values.insert(values.end(), more.begin(), more.end());
  return runtime.list(std::move(values));
}

// The labels of the left one win.
Value joinedRecords(Runtime& runtime, const Record& a, const Record& b) {
  std::vector<Record::Entry> entries = b.entries();
  const Value result = runtime.record(std::move(entries));
  for (const auto& [label, value] : a.entries())
    result.as<Record>()->set(label, value);
  return result;
}

bool joinsAsText(const Value& value) {
  return value.is(ValueKind::text);
}

template <bool (*Test)(int)> Value compared(Runtime& runtime, const Value& a, const Value& b) {
  return Value::boolean(Test(order(runtime, a, b)));
}

Value equal(Runtime& runtime, const Value& a, const Value& b) {
  return Value::boolean(areEqual(runtime, a, b));
}

Value unequal(Runtime& runtime, const Value& a, const Value& b) {
  return Value::boolean(!areEqual(runtime, a, b));
}

template <bool Swapped, bool Wanted>
Value contained(Runtime& runtime, const Value& a, const Value& b) {
  return Value::boolean(contains(runtime, Swapped ? b : a, Swapped ? a : b) == Wanted);
}

// Whether the list has the values, or the single value, from a place on.
bool hasAt(Runtime& runtime, const List& list, std::size_t place, const Value& wanted) {
  const auto* several = wanted.as<List>();
  const std::vector<Value> values = several ? several->values() : std::vector<Value>{wanted};
  if (values.size() > list.size() - place)
    return false;
  for (std::size_t i = 0; i < values.size() && place + i < list.size(); ++i) {
    runtime.step();
    if (!areEqual(runtime, list.values()[place + i], values[i]))
      return false;
  }
  return true;
}

Value startsWith(Runtime& runtime, const Value& a, const Value& b) {
  if (const auto* list = a.as<List>())
    return Value::boolean(hasAt(runtime, *list, 0, b));
  return Value::boolean(
      comparable(runtime, textOf(runtime, a)).starts_with(comparable(runtime, textOf(runtime, b))));
}

Value endsWith(Runtime& runtime, const Value& a, const Value& b) {
  if (const auto* list = a.as<List>()) {
    const auto* several = b.as<List>();
    const std::size_t count = several ? several->size() : 1;
    return Value::boolean(count <= list->size() && hasAt(runtime, *list, list->size() - count, b));
  }
  return Value::boolean(
      comparable(runtime, textOf(runtime, a)).ends_with(comparable(runtime, textOf(runtime, b))));
}

bool isLess(int order) {
  return order < 0;
}
bool isMore(int order) {
  return order > 0;
}
bool isNotMore(int order) {
  return order <= 0;
}
bool isNotLess(int order) {
  return order >= 0;
}

constexpr auto named = std::to_array<std::pair<std::string_view, Operator>>(
    {{"+", sum},
     {"-", difference},
     {"*", product},
     {"/", quotient},
     {"div", wholeQuotient},
     {"mod", remainderOf},
     {"^", power},
     {"&", joinedValues},
     {"=", equal},
     {"≠", unequal},
     {"<", compared<isLess>},
     {">", compared<isMore>},
     {"≤", compared<isNotMore>},
     {"≥", compared<isNotLess>},
     {"contains", contained<false, true>},
     {"does not contain", contained<false, false>},
     {"is in", contained<true, true>},
     {"is not in", contained<true, false>},
     {"starts with", startsWith},
     {"ends with", endsWith}});

} // namespace

Operator operatorNamed(std::string_view name) {
  for (const auto& [each, function] : named)
    if (each == name)
      return function;
  return nullptr;
}

// To a date seconds may be added.
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

Value negated(Runtime& runtime, const Value& value) {
  return difference(runtime, Value::integer(0), value);
}

// What stands on the left decides: a text takes the right side as text, a record joins a record,
// everything else makes lists.
Value joinedValues(Runtime& runtime, const Value& a, const Value& b) {
  if (joinsAsText(a) && !b.is(ValueKind::record))
    return joinedTexts(runtime, a, b);
  if (a.is(ValueKind::record) && b.is(ValueKind::record))
    return joinedRecords(runtime, *a.as<Record>(), *b.as<Record>());
  return joinedLists(runtime, a, b);
}

} // namespace tavrel::script
