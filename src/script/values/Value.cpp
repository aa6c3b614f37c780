#include "script/values/Value.h"

#include <set>

namespace tavrel::script {

const std::string* symbol(std::string_view name) {
  static std::set<std::string, std::less<>> names;
  const auto found = names.find(name);
  return found != names.end() ? &*found : &*names.emplace(name).first;
}

Value Value::boolean(bool value) {
  Value result(ValueKind::boolean);
  result.held_.boolean = value;
  return result;
}

Value Value::integer(std::int64_t value) {
  Value result(ValueKind::integer);
  result.held_.integer = value;
  return result;
}

Value Value::real(double value) {
  Value result(ValueKind::real);
  result.held_.real = value;
  return result;
}

Value Value::constant(std::string_view name) {
  Value result(ValueKind::constant);
  result.held_.symbol = symbol(name);
  return result;
}

Value Value::typeName(std::string_view name) {
  Value result(ValueKind::typeName);
  result.held_.symbol = symbol(name);
  return result;
}

Value::Value(Object* object) {
  if (!object)
    return;
  kind_ = object->kind();
  held_.object = object;
  object->retain();
}

} // namespace tavrel::script
