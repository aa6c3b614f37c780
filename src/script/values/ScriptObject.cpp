#include "script/values/ScriptObject.h"

#include <algorithm>

namespace tavrel::script {
namespace {

// A script may be made its own ancestor.
constexpr int mostAncestors = 100;

} // namespace

ScriptObject::ScriptObject(Heap& heap, std::shared_ptr<const ScriptDefinition> definition,
                           const ScriptOutline& outline, Ref<ScriptObject> enclosing)
    : Container(valueKind, heap), fields(outline.fields.size()), definition_(std::move(definition)),
      outline_(outline), outer_(std::move(enclosing)) {
  if (outer_)
    parent = Value(outer_);
}

ScriptObject::ScriptObject(Heap& heap, const ScriptObject& model)
    : ScriptObject(heap, model.definition_, model.outline_, model.outer_) {
  parent = model.parent;
}

void ScriptObject::empty() {
  std::vector<Value>(fields.size()).swap(fields);
  parent = {};
  outer_ = {};
}

Value* ScriptObject::find(const std::string* field) {
  ScriptObject* script = this;
  for (int ancestors = 0; script && ancestors < mostAncestors; ++ancestors) {
    const auto& names = script->outline_.fields;
    const auto found = std::find(names.begin(), names.end(), field);
    if (found != names.end())
      return &script->fields[static_cast<std::size_t>(found - names.begin())];
    script = script->parent.as<ScriptObject>();
  }
  return nullptr;
}

} // namespace tavrel::script
