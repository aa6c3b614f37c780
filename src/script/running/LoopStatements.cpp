#include "script/running/BlockStatements.h"

#include "script/values/Coercion.h"
#include "script/values/Elements.h"
#include "script/values/Operators.h"
#include "script/values/Reference.h"

namespace tavrel::script {
namespace {

// Whether the loop is over after its body ran so.
bool ends(Flow flow) {
  return flow != Flow::next;
}

Flow afterLoop(Flow flow) {
  return flow == Flow::returned ? flow : Flow::next;
}

// The items of a text are its characters.
Value itemsOf(Runtime& runtime, const Value& value) {
  return value.is(ValueKind::text) ? everyElement(runtime, value, "character")
                                   : coerced(runtime, value, "list");
}

Value itemReference(Runtime& runtime, const Value& list, std::size_t place) {
  return elementReference(runtime, list, "item",
                          Value::integer(static_cast<std::int64_t>(place) + 1));
}

class Forever final : public Action {
public:
  explicit Forever(Sequence body) : body_(std::move(body)) {}
  Flow run(Frame& frame) const override {
    Flow flow = Flow::next;
    while (!ends(flow)) {
      frame.runtime.step();
      flow = body_.run(frame);
    }
    return afterLoop(flow);
  }

private:
  Sequence body_;
};

class Times final : public Action {
public:
  Times(CodePtr count, Sequence body) : count_(std::move(count)), body_(std::move(body)) {}
  Flow run(Frame& frame) const override {
    const std::int64_t count = integerOf(frame.runtime, count_->evaluate(frame));
    Flow flow = Flow::next;
    for (std::int64_t i = 0; i < count && !ends(flow); ++i) {
      frame.runtime.step();
      flow = body_.run(frame);
    }
    return afterLoop(flow);
  }

private:
  CodePtr count_;
  Sequence body_;
};

class Conditional final : public Action {
public:
  Conditional(bool lasts, CodePtr condition, Sequence body)
      : lasts_(lasts), condition_(std::move(condition)), body_(std::move(body)) {}
  Flow run(Frame& frame) const override {
    Flow flow = Flow::next;
    while (!ends(flow) && booleanOf(frame.runtime, condition_->evaluate(frame)) == lasts_) {
      frame.runtime.step();
      flow = body_.run(frame);
    }
    return afterLoop(flow);
  }

private:
  bool lasts_;
  CodePtr condition_;
  Sequence body_;
};

class Count final : public Action {
public:
  Count(Counting counting, Sequence body)
      : counting_(std::move(counting)), body_(std::move(body)) {}
  Flow run(Frame& frame) const override {
    Runtime& runtime = frame.runtime;
    const Value from = numberOf(runtime, counting_.from->evaluate(frame));
    const Value to = numberOf(runtime, counting_.to->evaluate(frame));
    const Value step =
        counting_.step ? numberOf(runtime, counting_.step->evaluate(frame)) : Value::integer(1);
    if (step.number() == 0)
      throw ScriptError{errors::badIndex, "A loop can’t count by 0."};
    const int beyond = step.number() > 0 ? 1 : -1;
    Flow flow = Flow::next;
    bool runsOver = false;
    for (Value at = from; !ends(flow) && !runsOver && order(runtime, at, to) != beyond;) {
      runtime.step();
      counting_.place->assign(frame, at);
      flow = body_.run(frame);
      Value next = sum(runtime, at, step);
      // Past 64 bits a counter would be real and stand still.
      runsOver =
          at.is(ValueKind::integer) && step.is(ValueKind::integer) && !next.is(ValueKind::integer);
      at = std::move(next);
    }
    return afterLoop(flow);
  }

private:
  Counting counting_;
  Sequence body_;
};

// The list may grow while the loop runs; what it had at the start is visited.
class Each final : public Action {
public:
  Each(CodePtr place, CodePtr list, Item item, Sequence body)
      : place_(std::move(place)), list_(std::move(list)), item_(item), body_(std::move(body)) {}
  Flow run(Frame& frame) const override {
    const Value whole = itemsOf(frame.runtime, list_->evaluate(frame));
    const Ref list(whole.as<List>());
    const std::size_t count = list->size();
    Flow flow = Flow::next;
    for (std::size_t i = 0; i < count && i < list->size() && !ends(flow); ++i) {
      frame.runtime.step();
      place_->assign(frame, item_ == Item::reference ? itemReference(frame.runtime, whole, i)
                                                     : list->values()[i]);
      flow = body_.run(frame);
    }
    return afterLoop(flow);
  }

private:
  CodePtr place_;
  CodePtr list_;
  Item item_;
  Sequence body_;
};

} // namespace

ActionPtr foreverAction(Sequence body) {
  return std::make_unique<Forever>(std::move(body));
}

ActionPtr timesAction(CodePtr count, Sequence body) {
  return std::make_unique<Times>(std::move(count), std::move(body));
}

ActionPtr conditionAction(Until until, CodePtr condition, Sequence body) {
  return std::make_unique<Conditional>(until == Until::conditionFails, std::move(condition),
                                       std::move(body));
}

ActionPtr countingAction(Counting counting, Sequence body) {
  return std::make_unique<Count>(std::move(counting), std::move(body));
}

ActionPtr eachAction(CodePtr place, CodePtr list, Item item, Sequence body) {
  return std::make_unique<Each>(std::move(place), std::move(list), item, std::move(body));
}

} // namespace tavrel::script
