#include "script/running/ValueExpressions.h"

#include "script/running/HandlerCalls.h"
#include "script/values/Coercion.h"
#include "script/values/Dates.h"
#include "script/values/Operators.h"

namespace tavrel::script {
namespace {

// A value that a list or a record can hold.
Value held(Frame& frame, const CodePtr& code) {
  Value value = code->evaluate(frame);
  if (value.is(ValueKind::undefined))
    throw ScriptError{errors::noResult,
                      "No result was returned from some part of this expression."};
  return value;
}

class ListOf final : public Code {
public:
  explicit ListOf(std::vector<CodePtr> elements) : elements_(std::move(elements)) {}
  Value evaluate(Frame& frame) const override {
    std::vector<Value> values;
    values.reserve(elements_.size());
    for (const CodePtr& each : elements_)
      values.push_back(held(frame, each));
    return frame.runtime.list(std::move(values));
  }

private:
  std::vector<CodePtr> elements_;
};

class RecordOf final : public Code {
public:
  explicit RecordOf(std::vector<LabelledCode> entries) : entries_(std::move(entries)) {}
  Value evaluate(Frame& frame) const override {
    std::vector<Record::Entry> values;
    for (const auto& [label, each] : entries_)
      values.emplace_back(label, held(frame, each));
    return frame.runtime.record(std::move(values));
  }

private:
  std::vector<LabelledCode> entries_;
};

class Binary final : public Code {
public:
  Binary(Operator function, CodePtr left, CodePtr right)
      : function_(function), left_(std::move(left)), right_(std::move(right)) {}
  Value evaluate(Frame& frame) const override {
    const Value left = left_->evaluate(frame);
    return function_(frame.runtime, left, right_->evaluate(frame));
  }

private:
  Operator function_;
  CodePtr left_;
  CodePtr right_;
};

// The operators of loops and counters, with a short way for whole numbers.
template <typename Short> class Quick final : public Code {
public:
  Quick(Operator function, CodePtr left, CodePtr right)
      : function_(function), left_(std::move(left)), right_(std::move(right)) {}
  Value evaluate(Frame& frame) const override {
    const Value left = left_->evaluate(frame);
    const Value right = right_->evaluate(frame);
    Value result;
    if (left.is(ValueKind::integer) && right.is(ValueKind::integer) &&
        Short::apply(left.integer(), right.integer(), result))
      return result;
    return function_(frame.runtime, left, right);
  }

private:
  Operator function_;
  CodePtr left_;
  CodePtr right_;
};

struct QuickSum {
  static bool apply(std::int64_t a, std::int64_t b, Value& result) {
    std::int64_t sum = 0;
    const bool fits = !__builtin_add_overflow(a, b, &sum);
    result = Value::integer(sum);
    return fits;
  }
};

struct QuickDifference {
  static bool apply(std::int64_t a, std::int64_t b, Value& result) {
    std::int64_t difference = 0;
    const bool fits = !__builtin_sub_overflow(a, b, &difference);
    result = Value::integer(difference);
    return fits;
  }
};

struct QuickLess {
  static bool apply(std::int64_t a, std::int64_t b, Value& result) {
    result = Value::boolean(a < b);
    return true;
  }
};

struct QuickEqual {
  static bool apply(std::int64_t a, std::int64_t b, Value& result) {
    result = Value::boolean(a == b);
    return true;
  }
};

// `and` and `or` look at their right side only when the left one leaves the answer open.
class Logical final : public Code {
public:
  Logical(bool decisive, CodePtr left, CodePtr right)
      : decisive_(decisive), left_(std::move(left)), right_(std::move(right)) {}
  Value evaluate(Frame& frame) const override {
    if (booleanOf(frame.runtime, left_->evaluate(frame)) == decisive_)
      return Value::boolean(decisive_);
    return Value::boolean(booleanOf(frame.runtime, right_->evaluate(frame)));
  }

private:
  bool decisive_;
  CodePtr left_;
  CodePtr right_;
};

template <typename Function> class Unary final : public Code {
public:
  Unary(Function function, CodePtr operand) : function_(function), operand_(std::move(operand)) {}
  Value evaluate(Frame& frame) const override {
    return function_(frame, operand_->evaluate(frame));
  }

private:
  Function function_;
  CodePtr operand_;
};

template <typename Function> CodePtr unaryCode(Function function, CodePtr operand) {
  return std::make_unique<Unary<Function>>(function, std::move(operand));
}

class Cast final : public Code {
public:
  Cast(CodePtr value, CodePtr type) : value_(std::move(value)), type_(std::move(type)) {}
  Value evaluate(Frame& frame) const override {
    const Value type = type_->evaluate(frame);
    const Value value = value_->evaluate(frame);
    if (!type.is(ValueKind::typeName))
      throw ScriptError{
          errors::cannotCoerce, std::string(described(type)).append(" is no class."), {}};
    return coerced(frame.runtime, value, type.name());
  }

private:
  CodePtr value_;
  CodePtr type_;
};

class NewScript final : public Code {
public:
  explicit NewScript(std::shared_ptr<const Shape> shape) : shape_(std::move(shape)) {}
  Value evaluate(Frame& frame) const override {
    return Value(instantiate(frame.runtime, shape_, Ref(&frame.self), &frame));
  }

private:
  std::shared_ptr<const Shape> shape_;
};

class ReferenceTo final : public Code {
public:
  explicit ReferenceTo(CodePtr target) : target_(std::move(target)) {}
  Value evaluate(Frame& frame) const override { return target_->refer(frame); }

private:
  CodePtr target_;
};

} // namespace

CodePtr listCode(std::vector<CodePtr> elements) {
  return std::make_unique<ListOf>(std::move(elements));
}

CodePtr recordCode(std::vector<LabelledCode> entries) {
  return std::make_unique<RecordOf>(std::move(entries));
}

CodePtr operatorCode(std::string_view name, CodePtr left, CodePtr right) {
  if (name == "and" || name == "or")
    return std::make_unique<Logical>(name == "or", std::move(left), std::move(right));
  const Operator function = operatorNamed(name);
  if (!function)
    throw ScriptError{errors::corruptScript, "The script has an unknown operator."};
  if (name == "+")
    return std::make_unique<Quick<QuickSum>>(function, std::move(left), std::move(right));
  if (name == "-")
    return std::make_unique<Quick<QuickDifference>>(function, std::move(left), std::move(right));
  if (name == "<")
    return std::make_unique<Quick<QuickLess>>(function, std::move(left), std::move(right));
  if (name == "=")
    return std::make_unique<Quick<QuickEqual>>(function, std::move(left), std::move(right));
  return std::make_unique<Binary>(function, std::move(left), std::move(right));
}

CodePtr negationCode(CodePtr operand) {
  return unaryCode([](Frame& frame, const Value& value) { return negated(frame.runtime, value); },
                   std::move(operand));
}

CodePtr inversionCode(CodePtr operand) {
  return unaryCode(
      [](Frame& frame, const Value& value) {
        return Value::boolean(!booleanOf(frame.runtime, value));
      },
      std::move(operand));
}

CodePtr castCode(CodePtr value, CodePtr type) {
  return std::make_unique<Cast>(std::move(value), std::move(type));
}

CodePtr dateCode(CodePtr text) {
  return unaryCode(
      [](Frame& frame, const Value& value) { return coerced(frame.runtime, value, "date"); },
      std::move(text));
}

CodePtr scriptCode(std::shared_ptr<const Shape> shape) {
  return std::make_unique<NewScript>(std::move(shape));
}

CodePtr referenceCode(CodePtr target) {
  return std::make_unique<ReferenceTo>(std::move(target));
}

} // namespace tavrel::script
