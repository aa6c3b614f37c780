#include "script/running/LoopStatements.h"

#include "script/values/Arithmetic.h"
#include "script/values/Coercion.h"
#include "script/values/Comparison.h"
#include "script/values/Elements.h"
#include "script/values/Reference.h"

namespace tavrel::script {
namespace {

// Whether the loop is over after its body ended in that way.
bool endsLoop(Flow flow) {
  return flow != Flow::next;
}

Flow afterLoop(Flow flow) {
  return flow == Flow::returned ? flow : Flow::next;
}

// What a loop goes through: a text by its characters, any other value as a list.
Value itemsOf(Runtime& runtime, const Value& value) {
  return value.is(ValueKind::text) ? everyElement(runtime, value, "character")
                                   : coerced(runtime, value, "list");
}

Value itemReference(Runtime& runtime, const Value& list, std::size_t position) {
  return elementReference(runtime, list, "item",
                          Value::integer(static_cast<std::int64_t>(position) + 1));
}

class Forever final : public Statement {
public:
  explicit Forever(Block body) : body_(std::move(body)) {}
  Flow run(Frame& frame) const override {
    Flow flow = Flow::next;
    while (!endsLoop(flow)) {
      frame.runtime.step();
      flow = body_.run(frame);
    }
    return afterLoop(flow);
  }

private:
  Block body_;
};

class Times final : public Statement {
public:
  Times(ExpressionPtr count, Block body) : count_(std::move(count)), body_(std::move(body)) {}
  Flow run(Frame& frame) const override {
    const std::int64_t count = integerOf(frame.runtime, count_->evaluate(frame));
    Flow flow = Flow::next;
    for (std::int64_t i = 0; i < count && !endsLoop(flow); ++i) {
      frame.runtime.step();
      flow = body_.run(frame);
    }
    return afterLoop(flow);
  }

private:
  ExpressionPtr count_;
  Block body_;
};

class Conditional final : public Statement {
public:
  Conditional(bool lasts, ExpressionPtr condition, Block body)
      : lasts_(lasts), condition_(std::move(condition)), body_(std::move(body)) {}
  Flow run(Frame& frame) const override {
    Flow flow = Flow::next;
    while (!endsLoop(flow) && booleanOf(condition_->evaluate(frame)) == lasts_) {
      frame.runtime.step();
      flow = body_.run(frame);
    }
    return afterLoop(flow);
  }

private:
  bool lasts_;
  ExpressionPtr condition_;
  Block body_;
};

class CountingRepeat final : public Statement {
public:
  CountingRepeat(CountingLoop loop, Block body) : loop_(std::move(loop)), body_(std::move(body)) {}
  Flow run(Frame& frame) const override {
    Runtime& runtime = frame.runtime;
    const Value from = numberOf(runtime, loop_.from->evaluate(frame));
    const Value to = numberOf(runtime, loop_.to->evaluate(frame));
    const Value step =
        loop_.step ? numberOf(runtime, loop_.step->evaluate(frame)) : Value::integer(1);
    if (step.number() == 0)
      throw ScriptError{errors::badIndex, "A loop can’t count by 0."};
    const int beyond = step.number() > 0 ? 1 : -1;
    Flow flow = Flow::next;
    bool overflows = false;
    for (Value at = from; !endsLoop(flow) && !overflows && compare(runtime, at, to) != beyond;) {
      runtime.step();
      loop_.variable->assign(frame, at);
      flow = body_.run(frame);
      Value next = sum(runtime, at, step);
      // Beyond 64 bits the counter would become a real, for which adding 1 changes nothing.
      overflows =
          at.is(ValueKind::integer) && step.is(ValueKind::integer) && !next.is(ValueKind::integer);
      at = std::move(next);
    }
    return afterLoop(flow);
  }

private:
  CountingLoop loop_;
  Block body_;
};

// The body may change the list: items added meanwhile are not visited.
class Each final : public Statement {
public:
  Each(ExpressionPtr variable, ExpressionPtr list, LoopItem item, Block body)
      : variable_(std::move(variable)), list_(std::move(list)), item_(item),
        body_(std::move(body)) {}
  Flow run(Frame& frame) const override {
    const Value whole = itemsOf(frame.runtime, list_->evaluate(frame));
    const Ref list(whole.as<List>());
    const std::size_t count = list->size();
    Flow flow = Flow::next;
    for (std::size_t i = 0; i < count && i < list->size() && !endsLoop(flow); ++i) {
      frame.runtime.step();
      variable_->assign(frame, item_ == LoopItem::reference ? itemReference(frame.runtime, whole, i)
                                                            : list->values()[i]);
      flow = body_.run(frame);
    }
    return afterLoop(flow);
  }

private:
  ExpressionPtr variable_;
  ExpressionPtr list_;
  LoopItem item_;
  Block body_;
};

} // namespace

StatementPtr repeatForeverStatement(Block body) {
  return std::make_unique<Forever>(std::move(body));
}

StatementPtr repeatTimesStatement(ExpressionPtr count, Block body) {
  return std::make_unique<Times>(std::move(count), std::move(body));
}

StatementPtr conditionalRepeatStatement(LoopEnd end, ExpressionPtr condition, Block body) {
  return std::make_unique<Conditional>(end == LoopEnd::conditionFails, std::move(condition),
                                       std::move(body));
}

StatementPtr repeatWithStatement(CountingLoop loop, Block body) {
  return std::make_unique<CountingRepeat>(std::move(loop), std::move(body));
}

StatementPtr repeatInStatement(ExpressionPtr variable, ExpressionPtr list, LoopItem item,
                               Block body) {
  return std::make_unique<Each>(std::move(variable), std::move(list), item, std::move(body));
}

} // namespace tavrel::script
