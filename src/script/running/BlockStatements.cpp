#include "script/running/BlockStatements.h"

#include "script/running/HandlerCalls.h"
#include "script/running/ValueExpressions.h"
#include "script/values/Coercion.h"
#include "script/values/HostValues.h"
#include "script/values/Operators.h"
#include "script/values/Reference.h"

#include <algorithm>

namespace tavrel::script {
namespace {

Value copied(Runtime& runtime, const Value& value);

// Scripts that the script holds stay those they are: they stand inside the original.
Value copiedScript(Runtime& runtime, ScriptObject& script) {
  const Ref<ScriptObject> outer(script.outer());
  const Ref<ScriptObject> copy(new ScriptObject(runtime.heap, script.sharedShape(), outer));
  copy->parent = script.parent;
  for (std::size_t i = 0; i < script.fields.size() && i < copy->fields.size(); ++i) {
    const Value& field = script.fields[i];
    copy->fields[i] = field.is(ValueKind::script) ? field : copied(runtime, field);
  }
  return Value(copy);
}

// `copy` gives the place a list, record, date or script of its own, down to the last element.
Value copied(Runtime& runtime, const Value& value) {
  runtime.guardStack();
  runtime.step();
  if (const auto* date = value.as<Date>())
    return runtime.date(date->seconds);
  if (const auto* list = value.as<List>()) {
    std::vector<Value> values;
    for (const Value& each : list->values())
      values.push_back(copied(runtime, each));
    return runtime.list(std::move(values));
  }
  if (auto* script = value.as<ScriptObject>())
    return copiedScript(runtime, *script);
  const auto* record = value.as<Record>();
  if (!record)
    return value;
  std::vector<Record::Entry> entries;
  for (const auto& [label, each] : record->entries())
    entries.emplace_back(label, copied(runtime, each));
  return runtime.record(std::move(entries));
}

class Expression final : public Action {
public:
  Expression(CodePtr value, PriorResult before) : value_(std::move(value)), before_(before) {}
  Flow run(Frame& frame) const override {
    if (before_ == PriorResult::unused)
      frame.result = {};
    frame.result = value_->evaluate(frame);
    return Flow::next;
  }

private:
  CodePtr value_;
  PriorResult before_;
};

class Set final : public Action {
public:
  Set(CodePtr place, CodePtr value, Keeping keeping)
      : place_(std::move(place)), value_(std::move(value)), keeping_(keeping) {}
  Flow run(Frame& frame) const override {
    Value value = value_->evaluate(frame);
    if (keeping_ == Keeping::copies)
      value = copied(frame.runtime, value);
    frame.result = value;
    place_->assign(frame, std::move(value));
    return Flow::next;
  }

private:
  CodePtr place_;
  CodePtr value_;
  Keeping keeping_;
};

class If final : public Action {
public:
  If(std::vector<Branch> branches, Sequence otherwise)
      : branches_(std::move(branches)), otherwise_(std::move(otherwise)) {}
  Flow run(Frame& frame) const override {
    for (const Branch& branch : branches_)
      if (booleanOf(frame.runtime, branch.condition->evaluate(frame)))
        return branch.body.run(frame);
    return otherwise_.run(frame);
  }

private:
  std::vector<Branch> branches_;
  Sequence otherwise_;
};

class Exit final : public Action {
public:
  Flow run(Frame&) const override { return Flow::exitRepeat; }
};

class Return final : public Action {
public:
  explicit Return(CodePtr value) : value_(std::move(value)) {}
  Flow run(Frame& frame) const override {
    frame.returned = value_ ? value_->evaluate(frame) : Value();
    return Flow::returned;
  }

private:
  CodePtr value_;
};

class Try final : public Action {
public:
  explicit Try(Attempt attempt) : attempt_(std::move(attempt)) {}
  Flow run(Frame& frame) const override {
    try {
      return attempt_.body.run(frame);
    } catch (const ScriptError& error) {
      // Who stops a script means all of it.
      if (frame.runtime.isUsedUp() || frame.runtime.host.shouldStop())
        throw;
      if (attempt_.only && *attempt_.only != error.number)
        throw;
      return rescue(frame, error);
    }
  }

private:
  Flow rescue(Frame& frame, const ScriptError& error) const {
    if (attempt_.message)
      attempt_.message->assign(frame, frame.runtime.text(error.message));
    if (attempt_.number)
      attempt_.number->assign(frame, Value::integer(error.number));
    return attempt_.rescue.run(frame);
  }

  Attempt attempt_;
};

// What an error says that comes with no words of its own.
std::string defaultMessage(int number) {
  if (number == errors::userCanceled)
    return "User canceled.";
  if (number == errors::general)
    return "An error has occurred.";
  return "An error of type " + std::to_string(number) + " has occurred.";
}

class Fail final : public Action {
public:
  Fail(CodePtr message, CodePtr number)
      : message_(std::move(message)), number_(std::move(number)) {}
  Flow run(Frame& frame) const override {
    ScriptError error{errors::general};
    if (number_)
      error.number = static_cast<int>(std::clamp<std::int64_t>(
          integerOf(frame.runtime, number_->evaluate(frame)), INT32_MIN, INT32_MAX));
    error.message =
        message_ ? textOf(frame.runtime, message_->evaluate(frame)) : defaultMessage(error.number);
    throw error;
  }

private:
  CodePtr message_;
  CodePtr number_;
};

class Tell final : public Action {
public:
  Tell(CodePtr target, Sequence body) : target_(std::move(target)), body_(std::move(body)) {}
  Flow run(Frame& frame) const override {
    const TargetGuard guard(frame, behind(frame.runtime, target_->designate(frame)));
    return body_.run(frame);
  }

private:
  CodePtr target_;
  Sequence body_;
};

class Consider final : public Action {
public:
  Consider(Attention attention, std::vector<std::string> what, Sequence body)
      : counts_(attention == Attention::considering), what_(std::move(what)),
        body_(std::move(body)) {}
  Flow run(Frame& frame) const override {
    const Restore restore{frame.runtime.considered, frame.runtime.considered};
    for (const std::string& each : what_)
      set(frame.runtime.considered, each);
    return body_.run(frame);
  }

private:
  struct Restore {
    Considered& now;
    Considered before;
    ~Restore() { now = before; }
  };

  void set(Considered& considered, const std::string& what) const {
    if (what == "case")
      considered.caseDifferences = counts_;
    else if (what == "white space")
      considered.whiteSpace = counts_;
    else if (what == "hyphens")
      considered.hyphens = counts_;
    else if (what == "punctuation")
      considered.punctuation = counts_;
    else if (what == "diacriticals")
      considered.diacriticals = counts_;
    else if (what == "numeric strings")
      considered.numericStrings = counts_;
  }

  bool counts_;
  std::vector<std::string> what_;
  Sequence body_;
};

class Log final : public Action {
public:
  explicit Log(CodePtr value) : value_(std::move(value)) {}
  Flow run(Frame& frame) const override {
    const Value value = value_->evaluate(frame);
    const bool isText = value.is(ValueKind::text);
    const std::string line = isText ? textOf(frame.runtime, value) : described(value);
    (void)performEvent(frame.runtime, {{}, "log", HostValue{line}, {}});
    return Flow::next;
  }

private:
  CodePtr value_;
};

} // namespace

ActionPtr expressionAction(CodePtr value, PriorResult before) {
  return std::make_unique<Expression>(std::move(value), before);
}

ActionPtr setAction(CodePtr place, CodePtr value, Keeping keeping) {
  return std::make_unique<Set>(std::move(place), std::move(value), keeping);
}

ActionPtr branchAction(std::vector<Branch> branches, Sequence otherwise) {
  return std::make_unique<If>(std::move(branches), std::move(otherwise));
}

ActionPtr exitAction() {
  return std::make_unique<Exit>();
}

ActionPtr returnAction(CodePtr value) {
  return std::make_unique<Return>(std::move(value));
}

ActionPtr attemptAction(Attempt attempt) {
  return std::make_unique<Try>(std::move(attempt));
}

ActionPtr failAction(CodePtr message, CodePtr number) {
  return std::make_unique<Fail>(std::move(message), std::move(number));
}

ActionPtr tellAction(CodePtr target, Sequence body) {
  return std::make_unique<Tell>(std::move(target), std::move(body));
}

ActionPtr considerAction(Attention attention, std::vector<std::string> what, Sequence body) {
  return std::make_unique<Consider>(attention, std::move(what), std::move(body));
}

ActionPtr logAction(CodePtr value) {
  return std::make_unique<Log>(std::move(value));
}

} // namespace tavrel::script
