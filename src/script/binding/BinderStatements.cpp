#include "script/binding/Binder.h"
#include "script/running/AppendStatement.h"
#include "script/running/LoopStatements.h"
#include "script/running/ValueExpressions.h"

#include <algorithm>

namespace tavrel::script {
namespace {

// Whether the statements set the item that the loop variable stands for, as
// `set contents of x to 1` does.
bool writesThrough(const Node& node, const std::string& variable) {
  const bool writes = node.kind == NodeKind::set || node.kind == NodeKind::copy;
  const Node* target = writes && !node.children.empty() ? &node.children[0] : nullptr;
  if (target && target->kind == NodeKind::property && target->text == "contents" &&
      !target->children.empty() && target->children[0].text == variable)
    return true;
  return std::any_of(node.children.begin(), node.children.end(),
                     [&](const Node& each) { return writesThrough(each, variable); });
}

bool isSameVariable(const Node& a, const Node& b) {
  return a.kind == NodeKind::variable && b.kind == NodeKind::variable && a.text == b.text;
}

bool usesResult(const Node& node) {
  return node.kind == NodeKind::result ||
         std::any_of(node.children.begin(), node.children.end(), usesResult);
}

// Whether the expression may run a handler, and so may change a variable on its way.
bool mayRunHandlers(const Node& node) {
  if (node.kind == NodeKind::call || node.kind == NodeKind::labelledCall ||
      node.kind == NodeKind::continueCall || (node.kind == NodeKind::command && node.text == "run"))
    return true;
  return std::any_of(node.children.begin(), node.children.end(), mayRunHandlers);
}

// The operands a and b of `x & a & b`, in order, when x is the target and no operand can change it;
// else none.
std::vector<const Node*> appendedOperands(const Node& target, const Node& value) {
  std::vector<const Node*> operands;
  const Node* whole = &value;
  while (whole->kind == NodeKind::binary && whole->text == "&" && whole->children.size() == 2) {
    if (mayRunHandlers(whole->children[1]))
      return {};
    operands.push_back(&whole->children[1]);
    whole = &whole->children[0];
  }
  if (!isSameVariable(target, *whole))
    return {};
  std::reverse(operands.begin(), operands.end());
  return operands;
}

} // namespace

Block Binder::bindBlock(const Node& block) {
  if (block.kind != NodeKind::block)
    corrupt();
  Block result;
  for (const Node& each : block.children)
    if (each.kind != NodeKind::global)
      result.add(bindStatement(each));
  return result;
}

StatementPtr Binder::bindStatement(const Node& node) {
  StatementPtr statement = bindStatementKind(node);
  const_cast<Statement&>(*statement).span = node.span;
  return statement;
}

StatementPtr Binder::bindStatementKind(const Node& node) {
  switch (node.kind) {
  case NodeKind::block: {
    std::vector<ConditionalBlock> none;
    return ifStatement(std::move(none), bindBlock(node));
  }
  case NodeKind::expression:
    return expressionStatement(bindExpression(child(node, 0)),
                               usesResult(node) ? PriorResult::used : PriorResult::unused);
  case NodeKind::set:
    return bindAssignment(node, Assignment::shareValue);
  case NodeKind::copy:
    return bindAssignment(node, Assignment::copyValue);
  case NodeKind::ifStatement:
    return bindIf(node);
  case NodeKind::repeatForever:
    return repeatForeverStatement(bindBlock(child(node, 0)));
  case NodeKind::repeatTimes:
    return repeatTimesStatement(bindExpression(child(node, 0)), bindBlock(child(node, 1)));
  case NodeKind::repeatWhile:
    return conditionalRepeatStatement(LoopEnd::conditionFails, bindExpression(child(node, 0)),
                                      bindBlock(child(node, 1)));
  case NodeKind::repeatUntil:
    return conditionalRepeatStatement(LoopEnd::conditionHolds, bindExpression(child(node, 0)),
                                      bindBlock(child(node, 1)));
  case NodeKind::repeatWith: {
    CountingLoop counting{bindAssignedVariable(node), bindExpression(child(node, 0)),
                          bindExpression(child(node, 1)), bindOptional(child(node, 2))};
    return repeatWithStatement(std::move(counting), bindBlock(child(node, 3)));
  }
  case NodeKind::repeatIn:
    return bindRepeatIn(node);
  case NodeKind::exitRepeat:
    return exitStatement();
  case NodeKind::returnStatement:
    return returnStatement(bindOptional(child(node, 0)));
  case NodeKind::tryStatement:
    return bindTry(node);
  case NodeKind::errorStatement:
    return errorStatement(bindOptional(child(node, 0)), bindOptional(child(node, 1)));
  case NodeKind::tell:
    return tellStatement(bindExpression(child(node, 0)), bindBlock(child(node, 1)));
  case NodeKind::considering:
  case NodeKind::ignoring:
    return bindConsidering(node);
  case NodeKind::log:
    return logStatement(bindExpression(child(node, 0)));
  case NodeKind::local:
    for (const Node& name : node.children)
      (void)localSlot(symbol(name.text));
    return ifStatement({}, {});
  case NodeKind::script:
    return bindInnerScript(node);
  default:
    throw ScriptError{errors::syntax, "That can’t stand here.", node.span};
  }
}

StatementPtr Binder::bindAssignment(const Node& node, Assignment assignment) {
  const Node& target = child(node, 0);
  const Node& value = child(node, 1);
  if (assignment == Assignment::shareValue)
    if (const auto operands = appendedOperands(target, value); !operands.empty()) {
      std::vector<ExpressionPtr> appended;
      for (const Node* each : operands)
        appended.push_back(bindExpression(*each));
      return appendStatement(bindTarget(target), std::move(appended));
    }
  ExpressionPtr source = bindExpression(value);
  return setStatement(bindTarget(target), std::move(source), assignment);
}

StatementPtr Binder::bindIf(const Node& node) {
  std::vector<ConditionalBlock> branches;
  for (std::size_t i = 0; i + 1 < node.children.size(); i += 2)
    branches.push_back({bindExpression(node.children[i]), bindBlock(node.children[i + 1])});
  Block otherwise;
  if (node.children.size() % 2 == 1)
    otherwise = bindBlock(node.children.back());
  return ifStatement(std::move(branches), std::move(otherwise));
}

StatementPtr Binder::bindRepeatIn(const Node& node) {
  ExpressionPtr list = bindExpression(child(node, 0));
  const Node& body = child(node, 1);
  const LoopItem item = writesThrough(body, node.text) ? LoopItem::reference : LoopItem::value;
  ExpressionPtr variable = bindAssignedVariable(node);
  return repeatInStatement(std::move(variable), std::move(list), item, bindBlock(body));
}

StatementPtr Binder::bindTry(const Node& node) {
  TryClauses result;
  result.body = bindBlock(child(node, 0));
  const Node& message = child(node, 2);
  const Node& number = child(node, 3);
  if (message.kind == NodeKind::variable)
    result.messageVariable = bindAssignedVariable(message);
  if (number.kind == NodeKind::variable)
    result.numberVariable = bindAssignedVariable(number);
  else if (number.kind == NodeKind::integer)
    result.caughtNumber = number.integer;
  if (child(node, 1).kind != NodeKind::none)
    result.errorBlock = bindBlock(node.children[1]);
  return tryStatement(std::move(result));
}

StatementPtr Binder::bindConsidering(const Node& node) {
  if (node.children.empty())
    corrupt();
  std::vector<std::string> what;
  for (std::size_t i = 0; i + 1 < node.children.size(); ++i)
    what.push_back(node.children[i].text);
  const Consideration consideration =
      node.kind == NodeKind::considering ? Consideration::considering : Consideration::ignoring;
  const Node& last = node.children.back();
  if (last.kind == NodeKind::block)
    return consideringStatement(consideration, std::move(what), bindBlock(last));
  Block inner;
  inner.add(bindConsidering(last));
  return consideringStatement(consideration, std::move(what), std::move(inner));
}

// A script object inside a handler is made anew each time the statement runs.
StatementPtr Binder::bindInnerScript(const Node& node) {
  ExpressionPtr script =
      newScriptExpression(Binder(heap_, this).bindScriptBlock(child(node, 0), node.text));
  return node.text.empty()
             ? expressionStatement(std::move(script), PriorResult::used)
             : setStatement(bindAssignedVariable(node), std::move(script), Assignment::shareValue);
}

} // namespace tavrel::script
