#include "script/running/MemberExpression.h"
#include "script/values/AccessErrors.h"
#include "script/values/Reference.h"

namespace tavrel::script {
namespace {

class PropertyOf final : public PartCode {
public:
  PropertyOf(const std::string* name, CodePtr container)
      : PartCode(std::move(container)), name_(name) {}

protected:
  ObjectStep stepOf(Frame&) const override { return {ObjectStep::Kind::property, *name_, {}}; }
  Value partOf(Frame& frame, const Value& whole) const override {
    return propertyPart(frame.runtime, whole, name_);
  }
  Value placeOfPart(Frame& frame, const Value& place, const Value&) const override {
    return isContents() ? place : propertyReference(frame.runtime, place, name_);
  }
  void setPart(Frame& frame, const Value& whole, Value value) const override {
    setPropertyPart(frame.runtime, whole, name_, std::move(value));
  }
  bool isContents() const override { return *name_ == "contents"; }

private:
  const std::string* name_;
};

} // namespace

CodePtr propertyCode(const std::string* name, CodePtr container) {
  return std::make_unique<PropertyOf>(name, std::move(container));
}

} // namespace tavrel::script
