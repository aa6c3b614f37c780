#include "script/running/Variables.h"

#include "script/running/HostEvents.h"
#include "script/running/PropertyExpression.h"
#include "script/values/Coercion.h"
#include "script/values/Description.h"
#include "script/values/Properties.h"
#include "script/values/Reference.h"

namespace tavrel::script {
namespace {

[[noreturn]] void refuseUndefined(const std::string& name) {
  std::string message = "The variable ";
  message.append(name).append(" is not defined.");
  throw ScriptError{errors::notDefined, std::move(message)};
}

class Variable : public Expression {
public:
  explicit Variable(const std::string* name) : name_(name) {}

  Value evaluate(Frame& frame) const override {
    const Value& value = storage(frame);
    if (value.is(ValueKind::undefined))
      refuseUndefined(*name_);
    return value.is(ValueKind::reference) ? dereferenced(frame.runtime, value) : value;
  }
  Value evaluateUnfetched(Frame& frame) const override {
    const Value& value = storage(frame);
    if (value.is(ValueKind::undefined))
      refuseUndefined(*name_);
    return value;
  }
  Value makeReference(Frame&) const override {
    throw ScriptError{errors::cannotCoerce,
                      std::string("Can’t make ").append(*name_).append(" into type reference.")};
  }
  Value referenceBase(Frame& frame) const override { return evaluateUnfetched(frame); }
  Value evaluateArgument(Frame& frame) const override { return evaluateUnfetched(frame); }
  void assign(Frame& frame, Value value) const override { storage(frame) = std::move(value); }
  Value takeValue(Frame& frame) const override {
    Value& value = storage(frame);
    return value.is(ValueKind::text) || value.is(ValueKind::list) ? std::move(value)
                                                                  : evaluate(frame);
  }

protected:
  /// Where the value is kept.
  [[nodiscard]] virtual Value& storage(Frame& frame) const = 0;
  [[nodiscard]] const std::string* name() const { return name_; }

private:
  const std::string* name_;
};

class Local final : public Variable {
public:
  Local(std::size_t slot, const std::string* name) : Variable(name), slot_(slot) {}

protected:
  Value& storage(Frame& frame) const override { return frame.locals[slot_]; }

private:
  std::size_t slot_;
};

class CreatorLocal final : public Variable {
public:
  CreatorLocal(std::size_t slot, const std::string* name) : Variable(name), slot_(slot) {}

protected:
  Value& storage(Frame& frame) const override { return frame.creator->locals[slot_]; }

private:
  std::size_t slot_;
};

class Captured final : public Expression {
public:
  explicit Captured(std::size_t slot) : slot_(slot) {}
  Value evaluate(Frame& frame) const override { return frame.creator->locals[slot_]; }

private:
  std::size_t slot_;
};

class Field final : public Variable {
public:
  Field(std::size_t outward, std::size_t index, const std::string* name)
      : Variable(name), outward_(outward), index_(index) {}

  Value makeReference(Frame& frame) const override {
    return fieldReference(frame.runtime, owner(frame), index_, name());
  }
  Value referenceBase(Frame& frame) const override { return makeReference(frame); }

protected:
  Value& storage(Frame& frame) const override { return owner(frame).fields[index_]; }

private:
  [[nodiscard]] ScriptObject& owner(Frame& frame) const {
    ScriptObject* script = &frame.self;
    for (std::size_t i = 0; i < outward_; ++i)
      script = script->outer();
    return *script;
  }

  std::size_t outward_;
  std::size_t index_;
};

class Unknown final : public Expression {
public:
  explicit Unknown(const std::string* name) : name_(name) {}

  Value evaluate(Frame& frame) const override {
    return fetched(frame.runtime, evaluateUnfetched(frame));
  }
  Value evaluateUnfetched(Frame& frame) const override {
    if (frame.target.is(ValueKind::undefined) || frame.target.is(ValueKind::missing))
      refuseUndefined(*name_);
    if (frame.target.is(ValueKind::specifier))
      return expression_->evaluateUnfetched(frame);
    auto value = findProperty(frame.runtime, frame.target, name_);
    if (!value)
      refuseUndefined(*name_);
    return *std::move(value);
  }

private:
  const std::string* name_;
  ExpressionPtr expression_ = propertyExpression(name_, nullptr);
};

class Me final : public Expression {
public:
  Value evaluate(Frame& frame) const override { return frame.me; }
};

class It final : public Expression {
public:
  Value evaluate(Frame& frame) const override {
    return frame.target.is(ValueKind::undefined) ? frame.me : frame.target;
  }
};

class Result final : public Expression {
public:
  Value evaluate(Frame& frame) const override {
    if (frame.result.is(ValueKind::undefined))
      refuseUndefined("result");
    return frame.result;
  }
};

class Pattern final : public Expression {
public:
  explicit Pattern(std::vector<ExpressionPtr> targets) : targets_(std::move(targets)) {}

  Value evaluate(Frame& frame) const override {
    std::vector<Value> values;
    for (const ExpressionPtr& each : targets_)
      values.push_back(each->evaluate(frame));
    return frame.runtime.list(std::move(values));
  }
  void assign(Frame& frame, Value value) const override {
    const Value list = coerced(frame.runtime, value, "list");
    const std::vector<Value> values = list.as<List>()->values();
    if (values.size() < targets_.size())
      throw ScriptError{errors::noSuchObject, std::string("Can’t get item ")
                                                  .append(std::to_string(values.size() + 1))
                                                  .append(" of ")
                                                  .append(described(value))
                                                  .append(".")};
    for (std::size_t i = 0; i < targets_.size(); ++i)
      targets_[i]->assign(frame, values[i]);
  }

private:
  std::vector<ExpressionPtr> targets_;
};

} // namespace

ExpressionPtr localVariable(std::size_t slot, const std::string* name) {
  return std::make_unique<Local>(slot, name);
}

ExpressionPtr creatorVariable(std::size_t slot, const std::string* name) {
  return std::make_unique<CreatorLocal>(slot, name);
}

ExpressionPtr capturedValue(std::size_t slot) {
  return std::make_unique<Captured>(slot);
}

ExpressionPtr fieldVariable(std::size_t outward, std::size_t index, const std::string* name) {
  return std::make_unique<Field>(outward, index, name);
}

ExpressionPtr undeclaredName(const std::string* name) {
  return std::make_unique<Unknown>(name);
}

ExpressionPtr meExpression() {
  return std::make_unique<Me>();
}

ExpressionPtr itExpression() {
  return std::make_unique<It>();
}

ExpressionPtr resultExpression() {
  return std::make_unique<Result>();
}

ExpressionPtr patternExpression(std::vector<ExpressionPtr> targets) {
  return std::make_unique<Pattern>(std::move(targets));
}

} // namespace tavrel::script
