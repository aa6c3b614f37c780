#include "script/Codes.h"

#include "script/Calls.h"
#include "script/Coercion.h"
#include "script/Elements.h"
#include "script/HostValues.h"
#include "script/Operators.h"
#include "script/Parts.h"
#include "script/Reference.h"
#include "script/SpecifierObject.h"

#include <algorithm>

namespace tavrel::script {
namespace {

Value containerOf(Frame& frame, const CodePtr& container) {
  if (container)
    return container->designate(frame);
  return frame.target.is(ValueKind::undefined) ? frame.me : frame.target;
}

Value stepInto(const Specifier& container, ObjectStep step) {
  ObjectPath path = container.path;
  path.steps.push_back(std::move(step));
  return Value(Ref(new Specifier(std::move(path))));
}

void setOfApplication(Frame& frame, const Specifier& object, const Value& value) {
  HostEvent event{object.path.application, "set", HostValue{object.path}, {}};
  event.parameters["to"] = hostValueOf(frame.runtime, value);
  (void)performEvent(frame.runtime, event);
}

/// A part of a container: fetched when its value is wanted, left where it is otherwise.
class Part : public Code {
public:
  explicit Part(CodePtr container) : container_(std::move(container)) {}

  Value evaluate(Frame& frame) const override { return fetched(frame.runtime, designate(frame)); }
  Value designate(Frame& frame) const override {
    const Value whole = behind(frame.runtime, containerOf(frame, container_));
    if (const auto* object = whole.as<Specifier>())
      return stepInto(*object, stepOf(frame));
    return partOf(frame, whole);
  }
  Value refer(Frame& frame) const override {
    const Value place = container_ ? container_->reach(frame) : containerOf(frame, container_);
    const Value whole = behind(frame.runtime, place);
    if (const auto* object = whole.as<Specifier>())
      return stepInto(*object, stepOf(frame));
    return placeOfPart(frame, place, whole);
  }
  void assign(Frame& frame, Value value) const override {
    const Value given = containerOf(frame, container_);
    if (given.is(ValueKind::reference) && isContents()) {
      given.as<Reference>()->write(frame.runtime, std::move(value));
      return;
    }
    const Value whole = behind(frame.runtime, given);
    if (const auto* object = whole.as<Specifier>())
      setOfApplication(frame, *stepInto(*object, stepOf(frame)).as<Specifier>(), value);
    else
      setPart(frame, whole, std::move(value));
  }

protected:
  [[nodiscard]] virtual ObjectStep stepOf(Frame& frame) const = 0;
  [[nodiscard]] virtual Value partOf(Frame& frame, const Value& whole) const = 0;
  /// A reference to the part; the part itself for what cannot be written.
  [[nodiscard]] virtual Value placeOfPart(Frame& frame, const Value&, const Value& whole) const {
    return partOf(frame, whole);
  }
  virtual void setPart(Frame& frame, const Value&, Value value) const {
    Code::assign(frame, std::move(value));
  }
  [[nodiscard]] virtual bool isContents() const { return false; }

private:
  CodePtr container_;
};

class PropertyOf final : public Part {
public:
  PropertyOf(const std::string* name, CodePtr container)
      : Part(std::move(container)), name_(name) {}

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

class ElementOf final : public Part {
public:
  ElementOf(std::string type, CodePtr container, CodePtr key)
      : Part(std::move(container)), type_(std::move(type)), key_(std::move(key)) {}

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

class EveryOf final : public Part {
public:
  EveryOf(std::string type, CodePtr container)
      : Part(std::move(container)), type_(std::move(type)) {}

protected:
  ObjectStep stepOf(Frame&) const override { return {ObjectStep::Kind::every, type_, {}}; }
  Value partOf(Frame& frame, const Value& whole) const override {
    return everyElement(frame.runtime, whole, type_);
  }

private:
  std::string type_;
};

class PickOf final : public Part {
public:
  PickOf(Pick pick, std::string type, CodePtr container)
      : Part(std::move(container)), pick_(pick), type_(std::move(type)) {}

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

class RangeOf final : public Part {
public:
  RangeOf(std::string type, CodePtr container, BoundCode first, BoundCode last)
      : Part(std::move(container)), type_(std::move(type)), first_(std::move(first)),
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

class Application final : public Code {
public:
  explicit Application(CodePtr name) : name_(std::move(name)) {}
  Value evaluate(Frame& frame) const override {
    return Value(Ref(new Specifier({textOf(frame.runtime, name_->evaluate(frame)), {}})));
  }

private:
  CodePtr name_;
};

class FileOf final : public Code {
public:
  FileOf(std::string type, CodePtr path) : type_(std::move(type)), path_(std::move(path)) {}
  Value evaluate(Frame& frame) const override {
    return coerced(frame.runtime, path_->evaluate(frame), type_);
  }

private:
  std::string type_;
  CodePtr path_;
};

} // namespace

Value fetched(Runtime& runtime, Value given) {
  Value value = given.is(ValueKind::reference) ? behind(runtime, given) : std::move(given);
  const auto* object = value.as<Specifier>();
  if (!object || object->path.steps.empty())
    return value;
  return performEvent(runtime, {object->path.application, "get", HostValue{object->path}, {}});
}

CodePtr propertyCode(const std::string* name, CodePtr container) {
  return std::make_unique<PropertyOf>(name, std::move(container));
}

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

CodePtr filterCode(std::string type, CodePtr container, CodePtr condition) {
  return std::make_unique<FilterOf>(std::move(type), std::move(container), std::move(condition));
}

CodePtr insertionCode(Place place, CodePtr container) {
  return std::make_unique<InsertionPoint>(place, std::move(container));
}

CodePtr applicationCode(CodePtr name) {
  return std::make_unique<Application>(std::move(name));
}

CodePtr fileCode(std::string type, CodePtr path) {
  return std::make_unique<FileOf>(std::move(type), std::move(path));
}

} // namespace tavrel::script
