#include "script/values/Operators.h"

#include "script/values/Arithmetic.h"
#include "script/values/Comparison.h"
#include "script/values/Concatenation.h"

#include <array>

namespace tavrel::script {
namespace {

bool isLess(int sign) {
  return sign < 0;
}

bool isMore(int sign) {
  return sign > 0;
}

bool isNotMore(int sign) {
  return sign <= 0;
}

bool isNotLess(int sign) {
  return sign >= 0;
}

template <bool (*Test)(int)> Value compared(Runtime& runtime, const Value& a, const Value& b) {
  return Value::boolean(Test(compare(runtime, a, b)));
}

Value equal(Runtime& runtime, const Value& a, const Value& b) {
  return Value::boolean(areEqual(runtime, a, b));
}

Value unequal(Runtime& runtime, const Value& a, const Value& b) {
  return Value::boolean(!areEqual(runtime, a, b));
}

template <bool (*Test)(Runtime&, const Value&, const Value&)>
Value holds(Runtime& runtime, const Value& whole, const Value& part) {
  return Value::boolean(Test(runtime, whole, part));
}

Value lacks(Runtime& runtime, const Value& whole, const Value& part) {
  return Value::boolean(!contains(runtime, whole, part));
}

Value isIn(Runtime& runtime, const Value& part, const Value& whole) {
  return Value::boolean(contains(runtime, whole, part));
}

Value isNotIn(Runtime& runtime, const Value& part, const Value& whole) {
  return Value::boolean(!contains(runtime, whole, part));
}

constexpr auto named =
    std::to_array<std::pair<std::string_view, Operator>>({{"+", sum},
                                                          {"-", difference},
                                                          {"*", product},
                                                          {"/", quotient},
                                                          {"div", wholeQuotient},
                                                          {"mod", remainderOf},
                                                          {"^", power},
                                                          {"&", concatenated},
                                                          {"=", equal},
                                                          {"≠", unequal},
                                                          {"<", compared<isLess>},
                                                          {">", compared<isMore>},
                                                          {"≤", compared<isNotMore>},
                                                          {"≥", compared<isNotLess>},
                                                          {"contains", holds<contains>},
                                                          {"does not contain", lacks},
                                                          {"is in", isIn},
                                                          {"is not in", isNotIn},
                                                          {"starts with", holds<startsWith>},
                                                          {"ends with", holds<endsWith>}});

} // namespace

Operator operatorNamed(std::string_view name) {
  for (const auto& [each, function] : named)
    if (each == name)
      return function;
  return nullptr;
}

} // namespace tavrel::script
