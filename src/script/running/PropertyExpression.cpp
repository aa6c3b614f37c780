#include "script/running/PropertyExpression.h"

#include "script/running/MemberExpression.h"
#include "script/values/Properties.h"
#include "script/values/Reference.h"

namespace tavrel::script {
namespace {

class PropertyOf final : public MemberExpression {
public:
  PropertyOf(const std::string* name, ExpressionPtr container)
      : MemberExpression(std::move(container)), name_(name) {}

protected:
  ObjectStep stepOf(Frame&) const override { return {ObjectStep::Kind::property, *name_, {}}; }
  Value memberOf(Frame& frame, const Value& container) const override {
    return propertyOf(frame.runtime, container, name_);
  }
  Value referenceToMember(Frame& frame, const Value& base, const Value&) const override {
    return isContents() ? base : propertyReference(frame.runtime, base, name_);
  }
  void setMember(Frame& frame, const Value& container, Value value) const override {
    setProperty(frame.runtime, container, name_, std::move(value));
  }
  bool isContents() const override { return *name_ == "contents"; }

private:
  const std::string* name_;
};

} // namespace

ExpressionPtr propertyExpression(const std::string* name, ExpressionPtr container) {
  return std::make_unique<PropertyOf>(name, std::move(container));
}

} // namespace tavrel::script
