#include "script/values/Reference.h"

#include "script/values/Elements.h"
#include "script/values/Properties.h"

namespace tavrel::script {
namespace {

constexpr int longestChain = 100;

class FieldReference final : public Reference {
public:
  FieldReference(Heap& heap, ScriptObject& script, std::size_t index, const std::string* name)
      : Reference(heap), script_(&script), index_(index), name_(name) {}
  Value contents(Runtime&) const override {
    const Value value = script_ ? script_->fields[index_] : Value();
    if (value.is(ValueKind::undefined))
      throw ScriptError{errors::notDefined,
                        std::string("The variable ").append(*name_).append(" is not defined.")};
    return value;
  }
  void write(Runtime&, Value value) override {
    if (script_)
      script_->fields[index_] = std::move(value);
  }
  void empty() override { script_ = {}; }

private:
  Ref<ScriptObject> script_;
  std::size_t index_;
  const std::string* name_;
};

class PropertyReference final : public Reference {
public:
  PropertyReference(Heap& heap, Value container, const std::string* name)
      : Reference(heap), container_(std::move(container)), name_(name) {}
  Value contents(Runtime& runtime) const override {
    return propertyOf(runtime, dereferenced(runtime, container_), name_);
  }
  void write(Runtime& runtime, Value value) override {
    setProperty(runtime, dereferenced(runtime, container_), name_, std::move(value));
  }
  void empty() override { container_ = {}; }

private:
  Value container_;
  const std::string* name_;
};

class ElementReference final : public Reference {
public:
  ElementReference(Heap& heap, Value container, std::string type, Value key)
      : Reference(heap), container_(std::move(container)), type_(std::move(type)),
        key_(std::move(key)) {}
  Value contents(Runtime& runtime) const override {
    return elementOf(runtime, dereferenced(runtime, container_), type_, key_);
  }
  void write(Runtime& runtime, Value value) override {
    setElement(runtime, dereferenced(runtime, container_), type_, key_, std::move(value));
  }
  void empty() override { container_ = {}; }

private:
  Value container_;
  std::string type_;
  Value key_;
};

} // namespace

Value dereferenced(Runtime& runtime, const Value& value) {
  runtime.guardStack();
  Value result = value;
  for (int links = 0; result.is(ValueKind::reference); ++links) {
    if (links == longestChain)
      throw ScriptError{errors::stackOverflow, "A reference points to itself."};
    result = result.as<Reference>()->contents(runtime);
  }
  return result;
}

Value fieldReference(Runtime& runtime, ScriptObject& script, std::size_t index,
                     const std::string* name) {
  return Value(Ref(new FieldReference(runtime.heap, script, index, name)));
}

Value propertyReference(Runtime& runtime, const Value& container, const std::string* name) {
  return Value(Ref(new PropertyReference(runtime.heap, container, name)));
}

Value elementReference(Runtime& runtime, const Value& container, const std::string& type,
                       const Value& key) {
  return Value(Ref(new ElementReference(runtime.heap, container, type, key)));
}

} // namespace tavrel::script
