#include "script/running/MemberExpression.h"
#include "script/values/AccessErrors.h"
#include "script/values/Elements.h"
#include "script/values/Reference.h"

namespace tavrel::script {
namespace {

class InsertionPoint final : public Code {
public:
  InsertionPoint(Place place, CodePtr container)
      : place_(place), container_(std::move(container)) {}

  Value evaluate(Frame& frame) const override {
    const Value whole = fetched(frame.runtime, containerOf(frame, container_));
    return elementAt(frame.runtime, whole, "item", place_ == Place::end ? -1 : 1);
  }
  void assign(Frame& frame, Value value) const override {
    const Value whole = behind(frame.runtime, containerOf(frame, container_));
    auto* list = whole.as<List>();
    if (!list)
      cannotGet("end", whole);
    if (place_ == Place::end)
      list->append(std::move(value));
    else
      list->insertFirst(std::move(value));
  }

private:
  Place place_;
  CodePtr container_;
};

} // namespace

CodePtr insertionCode(Place place, CodePtr container) {
  return std::make_unique<InsertionPoint>(place, std::move(container));
}

} // namespace tavrel::script
