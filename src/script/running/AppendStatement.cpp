#include "script/running/BlockStatements.h"

#include "script/values/Coercion.h"
#include "script/values/Operators.h"

#include <algorithm>

namespace tavrel::script {
namespace {

// What a text takes as text, so that several pieces can be one.
bool joinsText(const Value& piece) {
  return !piece.is(ValueKind::record) && !piece.is(ValueKind::undefined);
}

bool appendText(Runtime& runtime, Text& text, const std::vector<Value>& pieces) {
  if (!std::all_of(pieces.begin(), pieces.end(), joinsText))
    return false;
  std::string tail;
  for (const Value& each : pieces)
    tail += textOf(runtime, each);
  text.append(tail);
  return true;
}

bool appendList(Runtime& runtime, List& list, const std::vector<Value>& pieces) {
  std::vector<Value> tail;
  for (const Value& each : pieces) {
    const Value more = coerced(runtime, each, "list");
    tail.insert(tail.end(), more.as<List>()->values().begin(), more.as<List>()->values().end());
  }
  for (Value& each : tail)
    list.append(std::move(each));
  return true;
}

// `set x to x & a & b`: nothing is copied that nobody else sees.
class Append final : public Action {
public:
  Append(CodePtr place, std::vector<CodePtr> pieces)
      : place_(std::move(place)), pieces_(std::move(pieces)) {}
  Flow run(Frame& frame) const override {
    std::vector<Value> pieces;
    pieces.reserve(pieces_.size());
    for (const CodePtr& each : pieces_)
      pieces.push_back(each->evaluate(frame));
    frame.result = {};
    Value whole = place_->takeOut(frame);
    try {
      join(frame.runtime, whole, pieces);
    } catch (...) {
      place_->assign(frame, std::move(whole));
      throw;
    }
    frame.result = whole;
    place_->assign(frame, std::move(whole));
    return Flow::next;
  }

private:
  static void join(Runtime& runtime, Value& whole, const std::vector<Value>& pieces) {
    const bool isOurs = whole.isObject() && !whole.object()->isShared();
    auto* text = isOurs ? whole.as<Text>() : nullptr;
    auto* list = isOurs ? whole.as<List>() : nullptr;
    if ((text && appendText(runtime, *text, pieces)) ||
        (list && appendList(runtime, *list, pieces)))
      return;
    Value joined = whole;
    for (const Value& each : pieces)
      joined = joinedValues(runtime, joined, each);
    whole = std::move(joined);
  }

  CodePtr place_;
  std::vector<CodePtr> pieces_;
};

} // namespace

ActionPtr appendAction(CodePtr place, std::vector<CodePtr> pieces) {
  return std::make_unique<Append>(std::move(place), std::move(pieces));
}

} // namespace tavrel::script
