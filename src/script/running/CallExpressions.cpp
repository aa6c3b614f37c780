#include "script/running/CallExpressions.h"

#include "script/running/AdditionCall.h"
#include "script/running/HandlerCalls.h"
#include "script/running/HostEvents.h"
#include "script/syntax/Terminology.h"
#include "script/values/Description.h"
#include "script/values/HostValues.h"
#include "script/values/Reference.h"
#include "script/values/Specifier.h"

namespace tavrel::script {
namespace {

[[noreturn]] void notUnderstood(const Value& target, const std::string& message) {
  std::string text = described(target);
  text.append(" doesn’t understand the “").append(message).append("” message.");
  throw ScriptError{errors::notUnderstood, std::move(text)};
}

// A call without a target goes to the target of the enclosing tell when that is a script or an
// application, else to the script itself.
Value receiver(Frame& frame, const ExpressionPtr& target) {
  if (target)
    return target->evaluate(frame);
  return frame.target.is(ValueKind::script) || frame.target.is(ValueKind::specifier) ? frame.target
                                                                                     : frame.me;
}

FoundHandler handlerOf(const Value& target, const std::string* name) {
  auto* script = target.as<ScriptObject>();
  const FoundHandler found = script ? findHandler(*script, name) : FoundHandler{};
  if (!found.handler)
    notUnderstood(target, *name);
  return found;
}

std::vector<Value> evaluated(Frame& frame, const std::vector<ExpressionPtr>& expressions) {
  std::vector<Value> values;
  values.reserve(expressions.size());
  for (const ExpressionPtr& each : expressions)
    values.push_back(each->evaluateArgument(frame));
  return values;
}

std::vector<LabelledValue> evaluated(Frame& frame,
                                     const std::vector<LabelledExpression>& expressions) {
  std::vector<LabelledValue> values;
  for (const auto& [label, expression] : expressions)
    values.push_back({label, expression->evaluateArgument(frame)});
  return values;
}

class Call final : public Expression {
public:
  Call(const std::string* name, ExpressionPtr target, std::vector<ExpressionPtr> arguments)
      : name_(name), target_(std::move(target)), arguments_(std::move(arguments)) {}
  Value evaluate(Frame& frame) const override {
    const Value target = receiver(frame, target_);
    return callHandler(frame.runtime, handlerOf(target, name_), target,
                       evaluated(frame, arguments_));
  }

private:
  const std::string* name_;
  ExpressionPtr target_;
  std::vector<ExpressionPtr> arguments_;
};

class LabelledCall final : public Expression {
public:
  LabelledCall(const std::string* name, ExpressionPtr target,
               std::vector<LabelledExpression> arguments)
      : name_(name), target_(std::move(target)), arguments_(std::move(arguments)) {}
  Value evaluate(Frame& frame) const override {
    const Value target = receiver(frame, target_);
    return callLabelled(frame.runtime, handlerOf(target, name_), target,
                        evaluated(frame, arguments_));
  }

private:
  const std::string* name_;
  ExpressionPtr target_;
  std::vector<LabelledExpression> arguments_;
};

class Continue final : public Expression {
public:
  Continue(const std::string* name, std::vector<ExpressionPtr> arguments)
      : name_(name), arguments_(std::move(arguments)) {}
  Value evaluate(Frame& frame) const override {
    return callHandler(frame.runtime, handlerOf(frame.self.parent, name_), frame.me,
                       evaluated(frame, arguments_));
  }

private:
  const std::string* name_;
  std::vector<ExpressionPtr> arguments_;
};

class LabelledContinue final : public Expression {
public:
  LabelledContinue(const std::string* name, std::vector<LabelledExpression> arguments)
      : name_(name), arguments_(std::move(arguments)) {}
  Value evaluate(Frame& frame) const override {
    return callLabelled(frame.runtime, handlerOf(frame.self.parent, name_), frame.me,
                        evaluated(frame, arguments_));
  }

private:
  const std::string* name_;
  std::vector<LabelledExpression> arguments_;
};

// Whether the desktop does the command, whichever application is told.
bool isOfDesktop(std::string_view command) {
  if (command == "launch" || command == "activate" || command == "quit")
    return false;
  for (const CommandTerm& term : commandTerms())
    if (term.name == command)
      return term.dictionary == Dictionary::language;
  return false;
}

class Command final : public Expression {
public:
  Command(const std::string& name, ScriptingAddition addition, ExpressionPtr direct,
          std::vector<LabelledExpression> parameters)
      : name_(name), addition_(addition), direct_(std::move(direct)),
        parameters_(std::move(parameters)) {}

  Value evaluate(Frame& frame) const override {
    AdditionCall call{frame, {}, {}};
    if (direct_)
      call.direct = dereferenced(frame.runtime, direct_->evaluateUnfetched(frame));
    for (const auto& [label, expression] : parameters_)
      call.parameters.push_back(
          {label, dereferenced(frame.runtime, expression->evaluateUnfetched(frame))});
    if (addition_)
      return addition_(call);
    return isOfDesktop(name_) ? ask({}, call) : ask(applicationOf(frame, call), call);
  }

private:
  [[nodiscard]] std::string applicationOf(Frame& frame, const AdditionCall& call) const {
    const auto* object = call.direct.as<Specifier>();
    const auto* target = frame.target.as<Specifier>();
    if (!object && !target)
      notUnderstood(frame.target.is(ValueKind::undefined) ? frame.me : frame.target, name_);
    return object ? object->path.application : target->path.application;
  }

  [[nodiscard]] Value ask(std::string application, const AdditionCall& call) const {
    Runtime& runtime = call.frame.runtime;
    HostEvent event{std::move(application), name_, std::nullopt, {}};
    if (direct_)
      event.direct = valueForHost(runtime, call.direct);
    for (const LabelledValue& each : call.parameters)
      event.parameters[*each.label] = valueForHost(runtime, each.value);
    return performEvent(runtime, event);
  }

  const std::string name_;
  ScriptingAddition addition_;
  ExpressionPtr direct_;
  std::vector<LabelledExpression> parameters_;
};

} // namespace

ExpressionPtr callExpression(const std::string* name, ExpressionPtr target,
                             std::vector<ExpressionPtr> arguments) {
  return std::make_unique<Call>(name, std::move(target), std::move(arguments));
}

ExpressionPtr labelledCallExpression(const std::string* name, ExpressionPtr target,
                                     std::vector<LabelledExpression> arguments) {
  return std::make_unique<LabelledCall>(name, std::move(target), std::move(arguments));
}

ExpressionPtr continueExpression(const std::string* name, std::vector<ExpressionPtr> arguments) {
  return std::make_unique<Continue>(name, std::move(arguments));
}

ExpressionPtr labelledContinueExpression(const std::string* name,
                                         std::vector<LabelledExpression> arguments) {
  return std::make_unique<LabelledContinue>(name, std::move(arguments));
}

ExpressionPtr commandExpression(const std::string& name, ScriptingAddition addition,
                                ExpressionPtr direct, std::vector<LabelledExpression> parameters) {
  return std::make_unique<Command>(name, addition, std::move(direct), std::move(parameters));
}

} // namespace tavrel::script
