#include "script/running/MemberExpression.h"

#include "script/running/HandlerCalls.h"
#include "script/values/HostValues.h"
#include "script/values/Reference.h"
#include "script/values/Specifier.h"

namespace tavrel::script {
namespace {

Value stepInto(const Specifier& container, ObjectStep step) {
  ObjectPath path = container.path;
  path.steps.push_back(std::move(step));
  return Value(Ref(new Specifier(std::move(path))));
}

void setOfApplication(Frame& frame, const Specifier& object, const Value& value) {
  HostEvent event{object.path.application, "set", HostValue{object.path}, {}};
  event.parameters["to"] = hostValueOf(frame.runtime, value);
  (void)performEvent(frame.runtime, event);
}

} // namespace

Value containerOf(Frame& frame, const CodePtr& container) {
  if (container)
    return container->designate(frame);
  return frame.target.is(ValueKind::undefined) ? frame.me : frame.target;
}

Value PartCode::designate(Frame& frame) const {
  const Value whole = behind(frame.runtime, containerOf(frame, container_));
  if (const auto* object = whole.as<Specifier>())
    return stepInto(*object, stepOf(frame));
  return partOf(frame, whole);
}

Value PartCode::refer(Frame& frame) const {
  const Value place = container_ ? container_->reach(frame) : containerOf(frame, container_);
  const Value whole = behind(frame.runtime, place);
  if (const auto* object = whole.as<Specifier>())
    return stepInto(*object, stepOf(frame));
  return placeOfPart(frame, place, whole);
}

void PartCode::assign(Frame& frame, Value value) const {
  const Value given = containerOf(frame, container_);
  if (given.is(ValueKind::reference) && isContents()) {
    given.as<Reference>()->write(frame.runtime, std::move(value));
    return;
  }
  const Value whole = behind(frame.runtime, given);
  if (const auto* object = whole.as<Specifier>())
    setOfApplication(frame, *stepInto(*object, stepOf(frame)).as<Specifier>(), value);
  else
    setPart(frame, whole, std::move(value));
}

Value PartCode::placeOfPart(Frame& frame, const Value&, const Value& whole) const {
  return partOf(frame, whole);
}

void PartCode::setPart(Frame& frame, const Value&, Value value) const {
  Code::assign(frame, std::move(value));
}

Value fetched(Runtime& runtime, Value given) {
  Value value = given.is(ValueKind::reference) ? behind(runtime, given) : std::move(given);
  const auto* object = value.as<Specifier>();
  if (!object || object->path.steps.empty())
    return value;
  return performEvent(runtime, {object->path.application, "get", HostValue{object->path}, {}});
}

} // namespace tavrel::script
