#include "script/running/ValueExpressions.h"

#include "script/running/ScriptInstances.h"
#include "script/values/Coercion.h"
#include "script/values/Specifier.h"

namespace tavrel::script {
namespace {

class Constant final : public Expression {
public:
  explicit Constant(Value value) : value_(std::move(value)) {}
  Value evaluate(Frame&) const override { return value_; }

private:
  Value value_;
};

// Lists and records cannot hold the undefined value of a handler that gives nothing.
Value definedValue(Frame& frame, const ExpressionPtr& expression) {
  Value value = expression->evaluate(frame);
  if (value.is(ValueKind::undefined))
    throw ScriptError{errors::noResult,
                      "No result was returned from some part of this expression."};
  return value;
}

class ListOf final : public Expression {
public:
  explicit ListOf(std::vector<ExpressionPtr> elements) : elements_(std::move(elements)) {}
  Value evaluate(Frame& frame) const override {
    std::vector<Value> values;
    values.reserve(elements_.size());
    for (const ExpressionPtr& each : elements_)
      values.push_back(definedValue(frame, each));
    return frame.runtime.list(std::move(values));
  }

private:
  std::vector<ExpressionPtr> elements_;
};

class RecordOf final : public Expression {
public:
  explicit RecordOf(std::vector<LabelledExpression> entries) : entries_(std::move(entries)) {}
  Value evaluate(Frame& frame) const override {
    std::vector<Record::Entry> values;
    for (const auto& [label, each] : entries_)
      values.emplace_back(label, definedValue(frame, each));
    return frame.runtime.record(std::move(values));
  }

private:
  std::vector<LabelledExpression> entries_;
};

class DateOf final : public Expression {
public:
  explicit DateOf(ExpressionPtr text) : text_(std::move(text)) {}
  Value evaluate(Frame& frame) const override {
    return coerced(frame.runtime, text_->evaluate(frame), "date");
  }

private:
  ExpressionPtr text_;
};

class FileOf final : public Expression {
public:
  FileOf(std::string type, ExpressionPtr path) : type_(std::move(type)), path_(std::move(path)) {}
  Value evaluate(Frame& frame) const override {
    return coerced(frame.runtime, path_->evaluate(frame), type_);
  }

private:
  std::string type_;
  ExpressionPtr path_;
};

class Application final : public Expression {
public:
  explicit Application(ExpressionPtr name) : name_(std::move(name)) {}
  Value evaluate(Frame& frame) const override {
    return Value(Ref(new Specifier({textOf(frame.runtime, name_->evaluate(frame)), {}})));
  }

private:
  ExpressionPtr name_;
};

class NewScript final : public Expression {
public:
  explicit NewScript(std::shared_ptr<const ScriptDefinition> definition)
      : definition_(std::move(definition)) {}
  Value evaluate(Frame& frame) const override {
    return Value(instantiate(frame.runtime, definition_, Ref(&frame.self), &frame));
  }

private:
  std::shared_ptr<const ScriptDefinition> definition_;
};

class ReferenceTo final : public Expression {
public:
  explicit ReferenceTo(ExpressionPtr target) : target_(std::move(target)) {}
  Value evaluate(Frame& frame) const override { return target_->makeReference(frame); }

private:
  ExpressionPtr target_;
};

} // namespace

ExpressionPtr constantExpression(Value value) {
  return std::make_unique<Constant>(std::move(value));
}

ExpressionPtr listExpression(std::vector<ExpressionPtr> elements) {
  return std::make_unique<ListOf>(std::move(elements));
}

ExpressionPtr recordExpression(std::vector<LabelledExpression> entries) {
  return std::make_unique<RecordOf>(std::move(entries));
}

ExpressionPtr dateExpression(ExpressionPtr text) {
  return std::make_unique<DateOf>(std::move(text));
}

ExpressionPtr fileExpression(std::string type, ExpressionPtr path) {
  return std::make_unique<FileOf>(std::move(type), std::move(path));
}

ExpressionPtr applicationExpression(ExpressionPtr name) {
  return std::make_unique<Application>(std::move(name));
}

ExpressionPtr newScriptExpression(std::shared_ptr<const ScriptDefinition> definition) {
  return std::make_unique<NewScript>(std::move(definition));
}

ExpressionPtr referenceExpression(ExpressionPtr target) {
  return std::make_unique<ReferenceTo>(std::move(target));
}

} // namespace tavrel::script
