#include "script/binding/Binder.h"

#include "script/binding/AssignedNames.h"
#include "script/running/Variables.h"

namespace tavrel::script {

std::size_t Binder::fieldIndex(const std::string* name) {
  auto& fields = definition_->fields;
  const auto [entry, isNew] = fields_.emplace(name, fields.size());
  if (isNew) {
    fields.push_back(name);
    definition_->initialValues.emplace_back();
  }
  return entry->second;
}

std::size_t Binder::localSlot(const std::string* name) {
  return locals_.emplace(name, locals_.size()).first->second;
}

void Binder::beginScope(const Node& block) {
  locals_.clear();
  globals_.clear();
  assigned_ = assignedNames(block);
  collectGlobals(block);
}

// A `global` declaration may stand wherever a statement can; handlers and scripts inside have their
// own.
void Binder::collectGlobals(const Node& node) {
  if (node.kind == NodeKind::global)
    for (const Node& name : node.children)
      globals_.insert(symbol(name.text));
  else if (node.kind >= NodeKind::block && node.kind != NodeKind::handler &&
           node.kind != NodeKind::script)
    for (const Node& each : node.children)
      collectGlobals(each);
}

ExpressionPtr Binder::findVariable(const std::string* name) {
  const auto found = locals_.find(name);
  if (found != locals_.end())
    return localVariable(found->second, name);
  if (bindsInitialValue_ && outer_ && outer_->hasLocal(name))
    return creatorVariable(outer_->localSlot(name), name);
  if (globals_.contains(name))
    return globalVariable(name);
  // An initial value may name the variables of the statements around its script.
  const bool isOfRun = bindsInitialValue_ && outer_ && outer_->inImplicitRun_ && !outer_->outer_;
  if (ExpressionPtr result = findField(name, isOfRun || (inImplicitRun_ && !outer_)))
    return result;
  if (assigned_.contains(name))
    return localVariable(localSlot(name), name);
  return capture(name) ? findField(name, false) : nullptr;
}

ExpressionPtr Binder::bindAssignedVariable(const Node& node) {
  const std::string* name = symbol(node.text);
  ExpressionPtr result = findVariable(name);
  return result ? std::move(result) : localVariable(localSlot(name), name);
}

ExpressionPtr Binder::findField(const std::string* name, bool alsoRunVariables) {
  std::size_t outward = 0;
  for (Binder* each = this; each; each = each->outer_, ++outward) {
    const auto found = each->fields_.find(name);
    const bool isHidden = each->runVariables_.contains(name) && !alsoRunVariables;
    if (found != each->fields_.end() && !isHidden)
      return fieldVariable(outward, found->second, name);
  }
  return nullptr;
}

// A global variable that no script declares becomes a field of the outermost one.
ExpressionPtr Binder::globalVariable(const std::string* name) {
  if (ExpressionPtr result = findField(name, true))
    return result;
  std::size_t outward = 0;
  Binder* top = this;
  for (; top->outer_; top = top->outer_)
    ++outward;
  const std::size_t index = top->fieldIndex(name);
  top->runVariables_.insert(name);
  return fieldVariable(outward, index, name);
}

// Whether the name is a variable of the handler that is bound now.
bool Binder::hasLocal(const std::string* name) {
  const bool isField =
      globals_.contains(name) || (inImplicitRun_ && !outer_) || findField(name, false);
  return locals_.contains(name) || (assigned_.contains(name) && !isField);
}

// A handler may make a script whose own handlers name the variables of the maker. Such a script
// keeps the values that they had when it was made, in fields of its own. Answers whether the name
// is one of them.
bool Binder::capture(const std::string* name) {
  if (!outer_ || !outer_->hasLocal(name))
    return outer_ && outer_->capture(name);
  const std::size_t index = fieldIndex(name);
  definition_->initialValues[index] = capturedValue(outer_->localSlot(name));
  return true;
}

} // namespace tavrel::script
