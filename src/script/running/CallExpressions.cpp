#include "script/running/ValueExpressions.h"

#include "script/running/AdditionCall.h"
#include "script/running/HandlerCalls.h"
#include "script/syntax/Terminology.h"
#include "script/values/Coercion.h"
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

// A message goes to the target of the enclosing tell, else to the script itself.
Value receiver(Frame& frame, const CodePtr& target) {
  if (target)
    return target->evaluate(frame);
  return frame.target.is(ValueKind::script) || frame.target.is(ValueKind::specifier) ? frame.target
                                                                                     : frame.me;
}

Found handlerOf(const Value& target, const std::string* name) {
  auto* script = target.as<ScriptObject>();
  const Found found = script ? findHandler(*script, name) : Found{};
  if (!found.handler)
    notUnderstood(target, *name);
  return found;
}

std::vector<Value> evaluated(Frame& frame, const std::vector<CodePtr>& codes) {
  std::vector<Value> values;
  values.reserve(codes.size());
  for (const CodePtr& each : codes)
    values.push_back(each->hand(frame));
  return values;
}

std::vector<LabelledValue> evaluated(Frame& frame, const std::vector<LabelledCode>& codes) {
  std::vector<LabelledValue> values;
  for (const auto& [label, code] : codes)
    values.push_back({label, code->hand(frame)});
  return values;
}

class Call final : public Code {
public:
  Call(const std::string* name, CodePtr target, std::vector<CodePtr> arguments)
      : name_(name), target_(std::move(target)), arguments_(std::move(arguments)) {}
  Value evaluate(Frame& frame) const override {
    const Value target = receiver(frame, target_);
    return callHandler(frame.runtime, handlerOf(target, name_), target,
                       evaluated(frame, arguments_));
  }

private:
  const std::string* name_;
  CodePtr target_;
  std::vector<CodePtr> arguments_;
};

class LabelledCall final : public Code {
public:
  LabelledCall(const std::string* name, CodePtr target, std::vector<LabelledCode> arguments)
      : name_(name), target_(std::move(target)), arguments_(std::move(arguments)) {}
  Value evaluate(Frame& frame) const override {
    const Value target = receiver(frame, target_);
    return callLabelled(frame.runtime, handlerOf(target, name_), target,
                        evaluated(frame, arguments_));
  }

private:
  const std::string* name_;
  CodePtr target_;
  std::vector<LabelledCode> arguments_;
};

// `continue name(...)`: the handler of that name that this script inherits, for the same `me`.
class Resume final : public Code {
public:
  Resume(const std::string* name, std::vector<CodePtr> arguments)
      : name_(name), arguments_(std::move(arguments)) {}
  Value evaluate(Frame& frame) const override {
    return callHandler(frame.runtime, handlerOf(frame.self.parent, name_), frame.me,
                       evaluated(frame, arguments_));
  }

private:
  const std::string* name_;
  std::vector<CodePtr> arguments_;
};

class LabelledResume final : public Code {
public:
  LabelledResume(const std::string* name, std::vector<LabelledCode> arguments)
      : name_(name), arguments_(std::move(arguments)) {}
  Value evaluate(Frame& frame) const override {
    return callLabelled(frame.runtime, handlerOf(frame.self.parent, name_), frame.me,
                        evaluated(frame, arguments_));
  }

private:
  const std::string* name_;
  std::vector<LabelledCode> arguments_;
};

// Whether the command is asked of the desktop rather than of an application.
bool isOfDesktop(std::string_view command) {
  if (command == "launch" || command == "activate" || command == "quit")
    return false;
  for (const CommandTerm& term : commandTerms())
    if (term.name == command)
      return term.dictionary == Dictionary::language;
  return false;
}

class Command final : public Code {
public:
  Command(const std::string& name, Addition addition, CodePtr direct,
          std::vector<LabelledCode> parameters)
      : name_(name), addition_(addition), direct_(std::move(direct)),
        parameters_(std::move(parameters)) {}

  Value evaluate(Frame& frame) const override {
    AdditionCall call{frame, {}, {}};
    if (direct_)
      call.direct = behind(frame.runtime, direct_->designate(frame));
    for (const auto& [label, code] : parameters_)
      call.parameters.push_back({label, behind(frame.runtime, code->designate(frame))});
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
      event.direct = hostValueOf(runtime, call.direct);
    for (const LabelledValue& each : call.parameters)
      event.parameters[*each.label] = hostValueOf(runtime, each.value);
    return performEvent(runtime, event);
  }

  const std::string name_;
  Addition addition_;
  CodePtr direct_;
  std::vector<LabelledCode> parameters_;
};

} // namespace

CodePtr callCode(const std::string* name, CodePtr target, std::vector<CodePtr> arguments) {
  return std::make_unique<Call>(name, std::move(target), std::move(arguments));
}

CodePtr labelledCallCode(const std::string* name, CodePtr target,
                         std::vector<LabelledCode> arguments) {
  return std::make_unique<LabelledCall>(name, std::move(target), std::move(arguments));
}

CodePtr resumeCode(const std::string* name, std::vector<CodePtr> arguments) {
  return std::make_unique<Resume>(name, std::move(arguments));
}

CodePtr labelledResumeCode(const std::string* name, std::vector<LabelledCode> arguments) {
  return std::make_unique<LabelledResume>(name, std::move(arguments));
}

CodePtr commandCode(const std::string& name, Addition addition, CodePtr direct,
                    std::vector<LabelledCode> parameters) {
  return std::make_unique<Command>(name, addition, std::move(direct), std::move(parameters));
}

} // namespace tavrel::script
