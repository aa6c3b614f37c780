#include "script/running/MemberExpression.h"

#include "script/values/AccessErrors.h"
#include "script/values/Coercion.h"
#include "script/values/Elements.h"
#include "script/values/HostValues.h"
#include "script/values/Reference.h"

#include <algorithm>

namespace tavrel::script {
namespace {

class ElementOf final : public PartCode {
public:
  ElementOf(std::string type, CodePtr container, CodePtr key)
      : PartCode(std::move(container)), type_(std::move(type)), key_(std::move(key)) {}

protected:
  ObjectStep stepOf(Frame& frame) const override {
    return {ObjectStep::Kind::element, type_, {hostValueOf(frame.runtime, key_->evaluate(frame))}};
  }
  Value partOf(Frame& frame, const Value& whole) const override {
    return elementPart(frame.runtime, whole, type_, key_->evaluate(frame));
  }
  Value placeOfPart(Frame& frame, const Value& place, const Value&) const override {
    return elementReference(frame.runtime, place, type_, key_->evaluate(frame));
  }
  void setPart(Frame& frame, const Value& whole, Value value) const override {
    setElementPart(frame.runtime, whole, type_, key_->evaluate(frame), std::move(value));
  }

private:
  std::string type_;
  CodePtr key_;
};

class EveryOf final : public PartCode {
public:
  EveryOf(std::string type, CodePtr container)
      : PartCode(std::move(container)), type_(std::move(type)) {}

protected:
  ObjectStep stepOf(Frame&) const override { return {ObjectStep::Kind::every, type_, {}}; }
  Value partOf(Frame& frame, const Value& whole) const override {
    return everyElement(frame.runtime, whole, type_);
  }

private:
  std::string type_;
};

class PickOf final : public PartCode {
public:
  PickOf(Pick pick, std::string type, CodePtr container)
      : PartCode(std::move(container)), pick_(pick), type_(std::move(type)) {}

protected:
  ObjectStep stepOf(Frame&) const override {
    throw ScriptError{errors::noSuchObject, "Applications have no such elements."};
  }
  Value partOf(Frame& frame, const Value& whole) const override {
    const std::int64_t count = countElements(frame.runtime, whole, type_);
    const std::int64_t last = std::max<std::int64_t>(count, 1);
    std::uniform_int_distribution<std::int64_t> any(1, last);
    return elementAt(frame.runtime, whole, type_,
                     pick_ == Pick::middle ? (last + 1) / 2 : any(frame.runtime.random));
  }

private:
  Pick pick_;
  std::string type_;
};

class RangeOf final : public PartCode {
public:
  RangeOf(std::string type, CodePtr container, BoundCode first, BoundCode last)
      : PartCode(std::move(container)), type_(std::move(type)), first_(std::move(first)),
        last_(std::move(last)) {}

protected:
  ObjectStep stepOf(Frame& frame) const override {
    return {ObjectStep::Kind::range,
            type_,
            {hostValueOf(frame.runtime, first_.index->evaluate(frame)),
             hostValueOf(frame.runtime, last_.index->evaluate(frame))}};
  }
  Value partOf(Frame& frame, const Value& whole) const override {
    return elementsBetween(frame.runtime, whole, type_, bound(frame, first_), bound(frame, last_));
  }

private:
  static Bound bound(Frame& frame, const BoundCode& code) {
    return {code.type, integerOf(frame.runtime, code.index->evaluate(frame))};
  }

  std::string type_;
  BoundCode first_;
  BoundCode last_;
};

} // namespace

CodePtr elementCode(std::string type, CodePtr container, CodePtr key) {
  return std::make_unique<ElementOf>(std::move(type), std::move(container), std::move(key));
}

CodePtr everyCode(std::string type, CodePtr container) {
  return std::make_unique<EveryOf>(std::move(type), std::move(container));
}

CodePtr pickCode(Pick pick, std::string type, CodePtr container) {
  return std::make_unique<PickOf>(pick, std::move(type), std::move(container));
}

CodePtr rangeCode(std::string type, CodePtr container, BoundCode first, BoundCode last) {
  return std::make_unique<RangeOf>(std::move(type), std::move(container), std::move(first),
                                   std::move(last));
}

} // namespace tavrel::script
