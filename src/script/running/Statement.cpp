#include "script/running/Expression.h"

#include <algorithm>

namespace tavrel::script {

// NOLINTNEXTLINE(performance-unnecessary-value-param): others keep the value
void Code::assign(Frame&, Value) const {
  throw ScriptError{errors::cannotSet, "Can’t set that: it is no variable, property or element.",
                    span};
}

Flow Sequence::run(Frame& frame) const {
  frame.runtime.guardStack();
  for (const ActionPtr& action : actions_) {
    try {
      frame.runtime.step();
      const Flow flow = action->run(frame);
      if (flow != Flow::next)
        return flow;
    } catch (ScriptError& error) {
      if (error.span.length == 0)
        error.span = action->span;
      throw;
    }
  }
  return Flow::next;
}

void Shape::add(Handler handler) {
  places_.emplace(handler.name, handlers_.size());
  handlers_.push_back(std::move(handler));
}

const Handler* Shape::handler(const std::string* handlerName) const {
  const auto found = places_.find(handlerName);
  return found != places_.end() ? &handlers_[found->second] : nullptr;
}

ScriptObject::ScriptObject(Heap& heap, std::shared_ptr<const Shape> form,
                           Ref<ScriptObject> enclosing)
    : Container(valueKind, heap), fields(form->fields.size()), shape_(std::move(form)),
      outer_(std::move(enclosing)) {
  if (outer_)
    parent = Value(outer_);
}

void ScriptObject::empty() {
  std::vector<Value>(fields.size()).swap(fields);
  parent = {};
  outer_ = {};
}

const std::string& ScriptObject::name() const {
  return shape_->name;
}

Value* ScriptObject::find(const std::string* field) {
  ScriptObject* script = this;
  // A script may be made its own ancestor.
  for (int generation = 0; script && generation < 100; ++generation) {
    const auto& names = script->shape_->fields;
    const auto found = std::find(names.begin(), names.end(), field);
    if (found != names.end())
      return &script->fields[static_cast<std::size_t>(found - names.begin())];
    script = script->parent.as<ScriptObject>();
  }
  return nullptr;
}

} // namespace tavrel::script
