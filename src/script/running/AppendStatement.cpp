#include "script/running/AppendStatement.h"

#include "script/values/Coercion.h"
#include "script/values/Concatenation.h"

#include <algorithm>

namespace tavrel::script {
namespace {

// Whether the operand joins a text as text; all of them can then be appended as one.
bool joinsAsText(const Value& operand) {
  return !operand.is(ValueKind::record) && !operand.is(ValueKind::undefined);
}

bool appendText(Runtime& runtime, Text& text, const std::vector<Value>& operands) {
  if (!std::all_of(operands.begin(), operands.end(), joinsAsText))
    return false;
  std::string tail;
  for (const Value& each : operands)
    tail += textOf(runtime, each);
  text.append(tail);
  return true;
}

bool appendList(Runtime& runtime, List& list, const std::vector<Value>& operands) {
  std::vector<Value> tail;
  for (const Value& each : operands) {
    const Value more = coerced(runtime, each, "list");
    tail.insert(tail.end(), more.as<List>()->values().begin(), more.as<List>()->values().end());
  }
  for (Value& each : tail)
    list.append(std::move(each));
  return true;
}

class Append final : public Statement {
public:
  Append(ExpressionPtr target, std::vector<ExpressionPtr> operands)
      : target_(std::move(target)), operands_(std::move(operands)) {}
  Flow run(Frame& frame) const override {
    std::vector<Value> operands;
    operands.reserve(operands_.size());
    for (const ExpressionPtr& each : operands_)
      operands.push_back(each->evaluate(frame));
    frame.result = {};
    Value whole = target_->takeValue(frame);
    try {
      join(frame.runtime, whole, operands);
    } catch (...) {
      target_->assign(frame, std::move(whole));
      throw;
    }
    frame.result = whole;
    target_->assign(frame, std::move(whole));
    return Flow::next;
  }

private:
  static void join(Runtime& runtime, Value& whole, const std::vector<Value>& operands) {
    const bool isOurs = whole.isObject() && !whole.object()->isShared();
    auto* text = isOurs ? whole.as<Text>() : nullptr;
    auto* list = isOurs ? whole.as<List>() : nullptr;
    if ((text && appendText(runtime, *text, operands)) ||
        (list && appendList(runtime, *list, operands)))
      return;
    Value joined = whole;
    for (const Value& each : operands)
      joined = concatenated(runtime, joined, each);
    whole = std::move(joined);
  }

  ExpressionPtr target_;
  std::vector<ExpressionPtr> operands_;
};

} // namespace

StatementPtr appendStatement(ExpressionPtr target, std::vector<ExpressionPtr> operands) {
  return std::make_unique<Append>(std::move(target), std::move(operands));
}

} // namespace tavrel::script
