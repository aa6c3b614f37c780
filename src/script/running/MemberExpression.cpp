#include "script/running/MemberExpression.h"

#include "script/running/HostEvents.h"
#include "script/values/Reference.h"
#include "script/values/Specifier.h"

namespace tavrel::script {
namespace {

Value stepInto(const Specifier& container, ObjectStep step) {
  ObjectPath path = container.path;
  path.steps.push_back(std::move(step));
  return Value(Ref(new Specifier(std::move(path))));
}

} // namespace

Value containerOf(Frame& frame, const ExpressionPtr& container) {
  if (container)
    return container->evaluateUnfetched(frame);
  return frame.target.is(ValueKind::undefined) ? frame.me : frame.target;
}

Value MemberExpression::evaluate(Frame& frame) const {
  return fetched(frame.runtime, evaluateUnfetched(frame));
}

Value MemberExpression::evaluateUnfetched(Frame& frame) const {
  const Value container = dereferenced(frame.runtime, containerOf(frame, container_));
  if (const auto* object = container.as<Specifier>())
    return stepInto(*object, stepOf(frame));
  return memberOf(frame, container);
}

Value MemberExpression::makeReference(Frame& frame) const {
  const Value base = container_ ? container_->referenceBase(frame) : containerOf(frame, container_);
  const Value container = dereferenced(frame.runtime, base);
  if (const auto* object = container.as<Specifier>())
    return stepInto(*object, stepOf(frame));
  return referenceToMember(frame, base, container);
}

void MemberExpression::assign(Frame& frame, Value value) const {
  const Value given = containerOf(frame, container_);
  if (given.is(ValueKind::reference) && isContents()) {
    given.as<Reference>()->write(frame.runtime, std::move(value));
    return;
  }
  const Value container = dereferenced(frame.runtime, given);
  if (const auto* object = container.as<Specifier>())
    setObject(frame.runtime, *stepInto(*object, stepOf(frame)).as<Specifier>(), value);
  else
    setMember(frame, container, std::move(value));
}

Value MemberExpression::referenceToMember(Frame& frame, const Value&,
                                          const Value& container) const {
  return memberOf(frame, container);
}

void MemberExpression::setMember(Frame& frame, const Value&, Value value) const {
  Expression::assign(frame, std::move(value));
}

} // namespace tavrel::script
