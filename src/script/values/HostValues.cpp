#include "script/values/HostValues.h"

#include "script/values/Description.h"
#include "script/values/Reference.h"
#include "script/values/Specifier.h"

namespace tavrel::script {
namespace {

struct ToValue {
  Runtime& runtime;

  Value operator()(std::monostate) const { return Value::missing(); }
  Value operator()(bool value) const { return Value::boolean(value); }
  Value operator()(std::int64_t value) const { return Value::integer(value); }
  Value operator()(double value) const { return Value::real(value); }
  Value operator()(const std::string& value) const { return runtime.text(value); }
  Value operator()(const HostFile& value) const { return runtime.file(value.path); }
  Value operator()(const HostName& value) const { return Value::constant(value.name); }
  Value operator()(const HostDate& value) const { return runtime.date(value.seconds); }
  Value operator()(const ObjectPath& value) const { return Value(Ref(new Specifier(value))); }
  Value operator()(const HostList& values) const {
    std::vector<Value> result;
    for (const HostValue& each : values)
      result.push_back(valueFromHost(runtime, each));
    return runtime.list(std::move(result));
  }
  Value operator()(const HostRecord& entries) const {
    std::vector<Record::Entry> result;
    for (const auto& [label, each] : entries)
      result.emplace_back(symbol(label), valueFromHost(runtime, each));
    return runtime.record(std::move(result));
  }
};

// Counted for each value: a small list may hold another many times, and plain data cannot share.
constexpr std::size_t hostValueSize = 2 * sizeof(HostValue);

HostValue plain(Runtime& runtime, const Value& value, HeapReservation& reservation);

HostValue plainObject(Runtime& runtime, const Value& value, HeapReservation& reservation) {
  if (const auto* text = value.as<Text>()) {
    reservation.take(text->value().size());
    return {text->value()};
  }
  if (const auto* file = value.as<File>())
    return {HostFile{file->path}};
  if (const auto* date = value.as<Date>())
    return {HostDate{date->seconds}};
  if (const auto* object = value.as<Specifier>())
    return {object->path};
  HostList list;
  if (const auto* values = value.as<List>())
    for (const Value& each : values->values())
      list.push_back(plain(runtime, each, reservation));
  else if (const auto* record = value.as<Record>()) {
    HostRecord entries;
    for (const auto& [label, each] : record->entries())
      entries[*label] = plain(runtime, each, reservation);
    return {std::move(entries)};
  } else
    throw ScriptError{
        errors::cannotCoerce,
        std::string("An application can’t take ").append(described(value)).append(".")};
  return {std::move(list)};
}

HostValue plain(Runtime& runtime, const Value& value, HeapReservation& reservation) {
  runtime.guardStack();
  reservation.take(hostValueSize);
  runtime.step();
  switch (value.kind()) {
  case ValueKind::undefined:
  case ValueKind::missing:
    return {};
  case ValueKind::boolean:
    return {value.boolean()};
  case ValueKind::integer:
    return {value.integer()};
  case ValueKind::real:
    return {value.real()};
  case ValueKind::constant:
  case ValueKind::typeName:
    return {HostName{value.name()}};
  case ValueKind::reference:
    return plain(runtime, dereferenced(runtime, value), reservation);
  default:
    return plainObject(runtime, value, reservation);
  }
}

} // namespace

Value valueFromHost(Runtime& runtime, const HostValue& value) {
  return std::visit(ToValue{runtime}, value.value);
}

HostValue valueForHost(Runtime& runtime, const Value& value) {
  HeapReservation reservation(runtime.heap);
  return plain(runtime, value, reservation);
}

} // namespace tavrel::script
