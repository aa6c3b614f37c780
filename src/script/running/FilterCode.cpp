#include "script/running/MemberExpression.h"
#include "script/values/Coercion.h"
#include "script/values/Reference.h"

namespace tavrel::script {
namespace {

// `every item of L whose it > 3`: in the condition the target is each element in turn.
class FilterOf final : public Code {
public:
  FilterOf(std::string type, CodePtr container, CodePtr condition)
      : all_(everyCode(std::move(type), std::move(container))), condition_(std::move(condition)) {}

  Value evaluate(Frame& frame) const override {
    const Value all = coerced(frame.runtime, all_->evaluate(frame), "list");
    const std::vector<Value> values = all.as<List>()->values();
    std::vector<Value> kept;
    for (const Value& each : values)
      if (holds(frame, each))
        kept.push_back(each);
    return frame.runtime.list(std::move(kept));
  }

private:
  [[nodiscard]] bool holds(Frame& frame, const Value& each) const {
    frame.runtime.step();
    const TargetGuard guard(frame, behind(frame.runtime, each));
    return booleanOf(frame.runtime, condition_->evaluate(frame));
  }

  CodePtr all_;
  CodePtr condition_;
};

} // namespace

CodePtr filterCode(std::string type, CodePtr container, CodePtr condition) {
  return std::make_unique<FilterOf>(std::move(type), std::move(container), std::move(condition));
}

} // namespace tavrel::script
