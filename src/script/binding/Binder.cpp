#include "script/binding/Binder.h"

#include "script/binding/Bind.h"

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

std::shared_ptr<Shape> Binder::script(const Node& block, const std::string& name) {
  shape_ = std::make_shared<Shape>();
  shape_->name = name;
  declareFields(block);
  for (const Node& each : block.children)
    if (each.kind == NodeKind::propertyDeclaration) {
      locals_.clear();
      globals_.clear();
      assigned_.clear();
      const std::size_t index = field(symbol(each.text));
      bindsValues_ = true;
      shape_->initialValues[index] = expression(child(each, 0));
      bindsValues_ = false;
      shape_->localCount = std::max(shape_->localCount, locals_.size());
    }
  for (const Node& each : block.children)
    if (each.kind == NodeKind::handler)
      addHandler(each);
  if (std::none_of(block.children.begin(), block.children.end(), isRun))
    addRunHandler(block);
  else
    refuseStatements(block);
  return shape_;
}

// What stands beside a run handler would never run.
void Binder::refuseStatements(const Node& block) {
  for (const Node& each : block.children) {
    const bool isEmpty = each.kind == NodeKind::block && each.children.empty();
    if (!isEmpty && !isDeclaration(each) && each.kind != NodeKind::script)
      throw ScriptError{errors::syntax, "A script with a run handler has no other statements.",
                        each.span};
  }
}

// Properties stand first: they are what persists. Script objects are fields too.
void Binder::declareFields(const Node& block) {
  for (const Node& each : block.children)
    if (each.kind == NodeKind::propertyDeclaration) {
      const std::size_t known = shape_->fields.size();
      if (field(symbol(each.text)) < known)
        refuseDoubled(errors::doubledProperty, each, "property");
    }
  shape_->propertyCount = shape_->fields.size();
  for (const Node& each : block.children) {
    if (each.kind == NodeKind::script)
      (void)field(symbol(each.text));
    if (each.kind == NodeKind::global)
      for (const Node& name : each.children)
        (void)(outer_ ? 0 : field(symbol(name.text)));
  }
  for (const Node& each : block.children)
    if (each.kind == NodeKind::script) {
      const std::size_t index = field(symbol(each.text));
      shape_->initialValues[index] =
          scriptCode(Binder(heap_, this).script(child(each, 0), each.text));
    }
}

std::size_t Binder::field(const std::string* name) {
  auto& fields = shape_->fields;
  const auto [entry, isNew] = fields_.emplace(name, fields.size());
  if (isNew) {
    fields.push_back(name);
    shape_->initialValues.emplace_back();
  }
  return entry->second;
}

void Binder::scopeOf(const Node& block) {
  locals_.clear();
  globals_.clear();
  assigned_ = assignedNames(block);
  noteGlobals(block);
}

// They may be declared wherever a statement can stand.
void Binder::noteGlobals(const Node& node) {
  if (node.kind == NodeKind::global)
    for (const Node& name : node.children)
      globals_.insert(symbol(name.text));
  else if (node.kind >= NodeKind::block && node.kind != NodeKind::handler &&
           node.kind != NodeKind::script)
    for (const Node& each : node.children)
      noteGlobals(each);
}

void Binder::addHandler(const Node& node) {
  if (node.children.empty())
    corrupt();
  const Node& body = node.children.back();
  scopeOf(body);
  runsFree_ = false;
  Handler handler;
  handler.name = symbol(node.text);
  if (shape_->handler(handler.name))
    refuseDoubled(errors::doubledHandler, node, "handler");
  handler.span = node.span;
  for (std::size_t i = 0; i + 1 < node.children.size(); ++i)
    addParameter(handler, node.children[i]);
  handler.body = sequence(body);
  handler.localCount = locals_.size();
  shape_->add(std::move(handler));
}

// The names of a pattern are the handler's own, whatever else has them.
void Binder::declarePattern(const Node& pattern) {
  if (pattern.kind == NodeKind::variable)
    (void)local(symbol(pattern.text));
  if (pattern.kind == NodeKind::list)
    for (const Node& each : pattern.children)
      declarePattern(each);
}

void Binder::addParameter(Handler& handler, const Node& node) {
  const bool isLabelled = !node.children.empty() && node.children[0].kind == NodeKind::text;
  const std::string* label = isLabelled ? symbol(node.children[0].text) : nullptr;
  if (node.children.size() > 1) {
    declarePattern(node.children[1]);
    handler.parameters.push_back({label, assignable(node.children[1])});
    return;
  }
  const std::string* name = symbol(node.text);
  if (locals_.contains(name))
    refuseDoubled(errors::doubledParameter, node, "parameter");
  handler.parameters.push_back({label, localCode(local(name), name)});
}

// The statements outside of all handlers. Their variables belong to the script, so that handlers
// can name them as global ones.
void Binder::addRunHandler(const Node& block) {
  scopeOf(block);
  runsFree_ = true;
  if (!outer_)
    for (const std::string* name : assigned_)
      if (!fields_.contains(name)) {
        (void)field(name);
        variables_.insert(name);
      }
  Node statements;
  statements.kind = NodeKind::block;
  Sequence body;
  for (const Node& each : block.children)
    if (!isDeclaration(each) && each.kind != NodeKind::script)
      body.add(statement(each));
  Handler handler;
  handler.name = symbol("run");
  handler.body = std::move(body);
  handler.localCount = locals_.size();
  shape_->add(std::move(handler));
  runsFree_ = false;
}

std::size_t Binder::local(const std::string* name) {
  return locals_.emplace(name, locals_.size()).first->second;
}

CodePtr Binder::fieldNamed(const std::string* name, bool alsoVariables) {
  std::size_t outward = 0;
  for (Binder* each = this; each; each = each->outer_, ++outward) {
    const auto found = each->fields_.find(name);
    const bool isHidden = each->variables_.contains(name) && !alsoVariables;
    if (found != each->fields_.end() && !isHidden)
      return fieldCode(outward, found->second, name);
  }
  return nullptr;
}

// A global variable that nothing else declares is a field of the outermost script.
CodePtr Binder::global(const std::string* name) {
  if (CodePtr code = fieldNamed(name, true))
    return code;
  std::size_t outward = 0;
  Binder* top = this;
  for (; top->outer_; top = top->outer_)
    ++outward;
  const std::size_t index = top->field(name);
  top->variables_.insert(name);
  return fieldCode(outward, index, name);
}

// Whether the name is one of the handler's own that is bound now.
bool Binder::hasLocal(const std::string* name) {
  const bool isField = globals_.contains(name) || (runsFree_ && !outer_) || fieldNamed(name, false);
  return locals_.contains(name) || (assigned_.contains(name) && !isField);
}

// Handlers of a script that a handler makes may name that handler's variables: the script keeps
// them as they were when it was made.
bool Binder::captures(const std::string* name) {
  if (!outer_ || !outer_->hasLocal(name))
    return outer_ && outer_->captures(name);
  const std::size_t index = field(name);
  shape_->initialValues[index] = capturedCode(outer_->local(name));
  return true;
}

CodePtr Binder::variable(const std::string* name) {
  const auto found = locals_.find(name);
  if (found != locals_.end())
    return localCode(found->second, name);
  if (bindsValues_ && outer_ && outer_->hasLocal(name))
    return creatorLocalCode(outer_->local(name), name);
  if (globals_.contains(name))
    return global(name);
  const bool isOfRun = bindsValues_ && outer_ && outer_->runsFree_ && !outer_->outer_;
  if (CodePtr code = fieldNamed(name, isOfRun || (runsFree_ && !outer_)))
    return code;
  if (assigned_.contains(name))
    return localCode(local(name), name);
  return captures(name) ? fieldNamed(name, false) : nullptr;
}

CodePtr Binder::place(const Node& node) {
  const std::string* name = symbol(node.text);
  CodePtr code = variable(name);
  return code ? std::move(code) : localCode(local(name), name);
}

std::shared_ptr<const Shape> bindScript(Heap& heap, const Node& script) {
  if (script.kind != NodeKind::block)
    throw ScriptError{errors::corruptScript, "The compiled script is damaged."};
  return Binder(heap, nullptr).script(script, {});
}

} // namespace tavrel::script
