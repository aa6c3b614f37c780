#include "script/running/ElementExpressions.h"

#include "script/running/HostEvents.h"
#include "script/running/MemberExpression.h"
#include "script/values/AccessErrors.h"
#include "script/values/Coercion.h"
#include "script/values/Elements.h"
#include "script/values/HostValues.h"
#include "script/values/Reference.h"

#include <algorithm>

namespace tavrel::script {
namespace {

class ElementOf final : public MemberExpression {
public:
  ElementOf(std::string type, ExpressionPtr container, ExpressionPtr key)
      : MemberExpression(std::move(container)), type_(std::move(type)), key_(std::move(key)) {}

protected:
  ObjectStep stepOf(Frame& frame) const override {
    return {ObjectStep::Kind::element, type_, {valueForHost(frame.runtime, key_->evaluate(frame))}};
  }
  Value memberOf(Frame& frame, const Value& container) const override {
    return elementOf(frame.runtime, container, type_, key_->evaluate(frame));
  }
  Value referenceToMember(Frame& frame, const Value& base, const Value&) const override {
    return elementReference(frame.runtime, base, type_, key_->evaluate(frame));
  }
  void setMember(Frame& frame, const Value& container, Value value) const override {
    setElement(frame.runtime, container, type_, key_->evaluate(frame), std::move(value));
  }

private:
  std::string type_;
  ExpressionPtr key_;
};

class EveryOf final : public MemberExpression {
public:
  EveryOf(std::string type, ExpressionPtr container)
      : MemberExpression(std::move(container)), type_(std::move(type)) {}

protected:
  ObjectStep stepOf(Frame&) const override { return {ObjectStep::Kind::every, type_, {}}; }
  Value memberOf(Frame& frame, const Value& container) const override {
    return everyElement(frame.runtime, container, type_);
  }

private:
  std::string type_;
};

class PickOf final : public MemberExpression {
public:
  PickOf(PickedElement pick, std::string type, ExpressionPtr container)
      : MemberExpression(std::move(container)), pick_(pick), type_(std::move(type)) {}

protected:
  ObjectStep stepOf(Frame&) const override {
    throw ScriptError{errors::noSuchObject, "Applications have no such elements."};
  }
  Value memberOf(Frame& frame, const Value& container) const override {
    const std::int64_t count = countElements(frame.runtime, container, type_);
    const std::int64_t last = std::max<std::int64_t>(count, 1);
    std::uniform_int_distribution<std::int64_t> any(1, last);
    return elementAt(frame.runtime, container, type_,
                     pick_ == PickedElement::middle ? (last + 1) / 2 : any(frame.runtime.random));
  }

private:
  PickedElement pick_;
  std::string type_;
};

class RangeOf final : public MemberExpression {
public:
  RangeOf(std::string type, ExpressionPtr container, BoundExpression first, BoundExpression last)
      : MemberExpression(std::move(container)), type_(std::move(type)), first_(std::move(first)),
        last_(std::move(last)) {}

protected:
  ObjectStep stepOf(Frame& frame) const override {
    return {ObjectStep::Kind::range,
            type_,
            {valueForHost(frame.runtime, first_.index->evaluate(frame)),
             valueForHost(frame.runtime, last_.index->evaluate(frame))}};
  }
  Value memberOf(Frame& frame, const Value& container) const override {
    return elementsBetween(frame.runtime, container, type_, bound(frame, first_),
                           bound(frame, last_));
  }

private:
  static Bound bound(Frame& frame, const BoundExpression& expression) {
    return {expression.type, integerOf(frame.runtime, expression.index->evaluate(frame))};
  }

  std::string type_;
  BoundExpression first_;
  BoundExpression last_;
};

class FilterOf final : public Expression {
public:
  FilterOf(std::string type, ExpressionPtr container, ExpressionPtr condition)
      : all_(everyElementExpression(std::move(type), std::move(container))),
        condition_(std::move(condition)) {}

  Value evaluate(Frame& frame) const override {
    const Value all = coerced(frame.runtime, all_->evaluate(frame), "list");
    const std::vector<Value> values = all.as<List>()->values();
    std::vector<Value> kept;
    for (const Value& each : values)
      if (holds(frame, each))
        kept.push_back(each);
    return frame.runtime.list(std::move(kept));
  }

private:
  [[nodiscard]] bool holds(Frame& frame, const Value& each) const {
    frame.runtime.step();
    const TargetGuard guard(frame, dereferenced(frame.runtime, each));
    return booleanOf(condition_->evaluate(frame));
  }

  ExpressionPtr all_;
  ExpressionPtr condition_;
};

class InsertionPointExpression final : public Expression {
public:
  InsertionPointExpression(InsertionPoint point, ExpressionPtr container)
      : point_(point), container_(std::move(container)) {}

  Value evaluate(Frame& frame) const override {
    const Value container = fetched(frame.runtime, containerOf(frame, container_));
    return elementAt(frame.runtime, container, "item", point_ == InsertionPoint::end ? -1 : 1);
  }
  void assign(Frame& frame, Value value) const override {
    const Value container = dereferenced(frame.runtime, containerOf(frame, container_));
    auto* list = container.as<List>();
    if (!list)
      cannotGet("end", container);
    if (point_ == InsertionPoint::end)
      list->append(std::move(value));
    else
      list->insertFirst(std::move(value));
  }

private:
  InsertionPoint point_;
  ExpressionPtr container_;
};

} // namespace

ExpressionPtr elementExpression(std::string type, ExpressionPtr container, ExpressionPtr key) {
  return std::make_unique<ElementOf>(std::move(type), std::move(container), std::move(key));
}

ExpressionPtr everyElementExpression(std::string type, ExpressionPtr container) {
  return std::make_unique<EveryOf>(std::move(type), std::move(container));
}

ExpressionPtr pickedElementExpression(PickedElement pick, std::string type,
                                      ExpressionPtr container) {
  return std::make_unique<PickOf>(pick, std::move(type), std::move(container));
}

ExpressionPtr elementRangeExpression(std::string type, ExpressionPtr container,
                                     BoundExpression first, BoundExpression last) {
  return std::make_unique<RangeOf>(std::move(type), std::move(container), std::move(first),
                                   std::move(last));
}

ExpressionPtr filterExpression(std::string type, ExpressionPtr container, ExpressionPtr condition) {
  return std::make_unique<FilterOf>(std::move(type), std::move(container), std::move(condition));
}

ExpressionPtr insertionPointExpression(InsertionPoint point, ExpressionPtr container) {
  return std::make_unique<InsertionPointExpression>(point, std::move(container));
}

} // namespace tavrel::script
