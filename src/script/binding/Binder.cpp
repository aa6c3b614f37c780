#include "script/binding/Binder.h"

#include "script/running/ValueExpressions.h"
#include "script/running/Variables.h"

#include <algorithm>

namespace tavrel::script {
namespace {

bool isDeclaration(const Node& node) {
  return node.kind == NodeKind::handler || node.kind == NodeKind::propertyDeclaration ||
         node.kind == NodeKind::global;
}

[[noreturn]] void refuseDoubled(int number, const Node& node, const char* what) {
  std::string message = "The ";
  message.append(node.text).append(" ").append(what).append(" is specified more than once.");
  throw ScriptError{number, std::move(message), node.span};
}

bool isRun(const Node& node) {
  return node.kind == NodeKind::handler && node.text == "run";
}

} // namespace

void Binder::corrupt() {
  throw ScriptError{errors::corruptScript, "The compiled script is damaged."};
}

const Node& Binder::child(const Node& node, std::size_t index) {
  if (index >= node.children.size())
    corrupt();
  return node.children[index];
}

std::shared_ptr<ScriptDefinition> Binder::bindScriptBlock(const Node& block,
                                                          const std::string& name) {
  definition_ = std::make_shared<ScriptDefinition>();
  definition_->name = name;
  declareFields(block);
  for (const Node& each : block.children)
    if (each.kind == NodeKind::propertyDeclaration)
      bindInitialValue(each);
  for (const Node& each : block.children)
    if (each.kind == NodeKind::handler)
      addHandler(each);
  if (std::none_of(block.children.begin(), block.children.end(), isRun))
    addRunHandler(block);
  else
    refuseStatements(block);
  return definition_;
}

void Binder::bindInitialValue(const Node& property) {
  locals_.clear();
  globals_.clear();
  assigned_.clear();
  const std::size_t index = fieldIndex(symbol(property.text));
  bindsInitialValue_ = true;
  definition_->initialValues[index] = bindExpression(child(property, 0));
  bindsInitialValue_ = false;
  definition_->localCount = std::max(definition_->localCount, locals_.size());
}

// Statements beside a run handler would never run.
void Binder::refuseStatements(const Node& block) {
  for (const Node& each : block.children) {
    const bool isEmpty = each.kind == NodeKind::block && each.children.empty();
    if (!isEmpty && !isDeclaration(each) && each.kind != NodeKind::script)
      throw ScriptError{errors::syntax, "A script with a run handler has no other statements.",
                        each.span};
  }
}

// The properties come first: a container keeps their values. Script objects are fields too.
void Binder::declareFields(const Node& block) {
  for (const Node& each : block.children)
    if (each.kind == NodeKind::propertyDeclaration) {
      const std::size_t known = definition_->fields.size();
      if (fieldIndex(symbol(each.text)) < known)
        refuseDoubled(errors::doubledProperty, each, "property");
    }
  definition_->propertyCount = definition_->fields.size();
  for (const Node& each : block.children) {
    if (each.kind == NodeKind::script)
      (void)fieldIndex(symbol(each.text));
    if (each.kind == NodeKind::global)
      for (const Node& name : each.children)
        (void)(outer_ ? 0 : fieldIndex(symbol(name.text)));
  }
  for (const Node& each : block.children)
    if (each.kind == NodeKind::script) {
      const std::size_t index = fieldIndex(symbol(each.text));
      definition_->initialValues[index] =
          newScriptExpression(Binder(heap_, this).bindScriptBlock(child(each, 0), each.text));
    }
}

void Binder::addHandler(const Node& node) {
  if (node.children.empty())
    corrupt();
  const Node& body = node.children.back();
  beginScope(body);
  inImplicitRun_ = false;
  Handler handler;
  handler.name = symbol(node.text);
  if (definition_->handler(handler.name))
    refuseDoubled(errors::doubledHandler, node, "handler");
  handler.span = node.span;
  for (std::size_t i = 0; i + 1 < node.children.size(); ++i)
    addParameter(handler, node.children[i]);
  handler.body = bindBlock(body);
  handler.localCount = locals_.size();
  definition_->add(std::move(handler));
}

// The names in a pattern are variables of the handler, even when a property has the same name.
void Binder::declarePattern(const Node& pattern) {
  if (pattern.kind == NodeKind::variable)
    (void)localSlot(symbol(pattern.text));
  if (pattern.kind == NodeKind::list)
    for (const Node& each : pattern.children)
      declarePattern(each);
}

void Binder::addParameter(Handler& handler, const Node& node) {
  const bool isLabelled = !node.children.empty() && node.children[0].kind == NodeKind::text;
  const std::string* label = isLabelled ? symbol(node.children[0].text) : nullptr;
  if (node.children.size() > 1) {
    declarePattern(node.children[1]);
    handler.parameters.push_back({label, bindTarget(node.children[1])});
    return;
  }
  const std::string* name = symbol(node.text);
  if (locals_.contains(name))
    refuseDoubled(errors::doubledParameter, node, "parameter");
  handler.parameters.push_back({label, localVariable(localSlot(name), name)});
}

// The statements outside of all handlers make the implicit run handler. Its variables are fields
// of the outermost script, so that handlers can declare them as global and share them.
void Binder::addRunHandler(const Node& block) {
  beginScope(block);
  inImplicitRun_ = true;
  if (!outer_)
    for (const std::string* name : assigned_)
      if (!fields_.contains(name)) {
        (void)fieldIndex(name);
        runVariables_.insert(name);
      }
  Block body;
  for (const Node& each : block.children)
    if (!isDeclaration(each) && each.kind != NodeKind::script)
      body.add(bindStatement(each));
  Handler handler;
  handler.name = symbol("run");
  handler.body = std::move(body);
  handler.localCount = locals_.size();
  definition_->add(std::move(handler));
  inImplicitRun_ = false;
}

std::shared_ptr<const ScriptDefinition> bindScript(Heap& heap, const Node& script) {
  if (script.kind != NodeKind::block)
    throw ScriptError{errors::corruptScript, "The compiled script is damaged."};
  return Binder(heap, nullptr).bindScriptBlock(script, {});
}

} // namespace tavrel::script
