#include "script/binding/Binder.h"

#include <algorithm>

namespace tavrel::script {
namespace {

// Whether the statements write through the loop variable, as `set contents of x to 1` does.
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
      node.kind == NodeKind::resume || (node.kind == NodeKind::command && node.text == "run"))
    return true;
  return std::any_of(node.children.begin(), node.children.end(), mayRunHandlers);
}

// The pieces of `x & a & b`, in order, when the value begins with the target; else none.
std::vector<const Node*> appendedPieces(const Node& target, const Node& value) {
  std::vector<const Node*> pieces;
  const Node* whole = &value;
  while (whole->kind == NodeKind::binary && whole->text == "&" && whole->children.size() == 2) {
    if (mayRunHandlers(whole->children[1]))
      return {};
    pieces.push_back(&whole->children[1]);
    whole = &whole->children[0];
  }
  if (!isSameVariable(target, *whole))
    return {};
  std::reverse(pieces.begin(), pieces.end());
  return pieces;
}

} // namespace

Sequence Binder::sequence(const Node& block) {
  if (block.kind != NodeKind::block)
    corrupt();
  Sequence result;
  for (const Node& each : block.children)
    if (each.kind != NodeKind::global)
      result.add(statement(each));
  return result;
}

ActionPtr Binder::statement(const Node& node) {
  ActionPtr action = plainStatement(node);
  const_cast<Action&>(*action).span = node.span;
  return action;
}

ActionPtr Binder::plainStatement(const Node& node) {
  switch (node.kind) {
  case NodeKind::block: {
    std::vector<Branch> none;
    return branchAction(std::move(none), sequence(node));
  }
  case NodeKind::expression:
    return expressionAction(expression(child(node, 0)),
                            usesResult(node) ? PriorResult::used : PriorResult::unused);
  case NodeKind::set:
    return assignment(node, Keeping::shares);
  case NodeKind::copy:
    return assignment(node, Keeping::copies);
  case NodeKind::branch:
    return branch(node);
  case NodeKind::repeatForever:
    return foreverAction(sequence(child(node, 0)));
  case NodeKind::repeatTimes:
    return timesAction(expression(child(node, 0)), sequence(child(node, 1)));
  case NodeKind::repeatWhile:
    return conditionAction(Until::conditionFails, expression(child(node, 0)),
                           sequence(child(node, 1)));
  case NodeKind::repeatUntil:
    return conditionAction(Until::conditionHolds, expression(child(node, 0)),
                           sequence(child(node, 1)));
  case NodeKind::repeatWith: {
    Counting counting{place(node), expression(child(node, 0)), expression(child(node, 1)),
                      optional(child(node, 2))};
    return countingAction(std::move(counting), sequence(child(node, 3)));
  }
  case NodeKind::repeatIn:
    return each(node);
  case NodeKind::exitRepeat:
    return exitAction();
  case NodeKind::giveBack:
    return returnAction(optional(child(node, 0)));
  case NodeKind::attempt:
    return attempt(node);
  case NodeKind::fail:
    return failAction(optional(child(node, 0)), optional(child(node, 1)));
  case NodeKind::tell:
    return tellAction(expression(child(node, 0)), sequence(child(node, 1)));
  case NodeKind::considering:
  case NodeKind::ignoring:
    return consider(node);
  case NodeKind::log:
    return logAction(expression(child(node, 0)));
  case NodeKind::local:
    for (const Node& name : node.children)
      (void)local(symbol(name.text));
    return branchAction({}, {});
  case NodeKind::script:
    return innerScript(node);
  default:
    throw ScriptError{errors::syntax, "That can’t stand here.", node.span};
  }
}

ActionPtr Binder::assignment(const Node& node, Keeping keeping) {
  const Node& target = child(node, 0);
  const Node& value = child(node, 1);
  if (keeping == Keeping::shares)
    if (const auto pieces = appendedPieces(target, value); !pieces.empty()) {
      std::vector<CodePtr> codes;
      for (const Node* each : pieces)
        codes.push_back(expression(*each));
      return appendAction(assignable(target), std::move(codes));
    }
  CodePtr code = expression(value);
  return setAction(assignable(target), std::move(code), keeping);
}

ActionPtr Binder::branch(const Node& node) {
  std::vector<Branch> branches;
  for (std::size_t i = 0; i + 1 < node.children.size(); i += 2)
    branches.push_back({expression(node.children[i]), sequence(node.children[i + 1])});
  Sequence otherwise;
  if (node.children.size() % 2 == 1)
    otherwise = sequence(node.children.back());
  return branchAction(std::move(branches), std::move(otherwise));
}

ActionPtr Binder::each(const Node& node) {
  CodePtr list = expression(child(node, 0));
  const Node& body = child(node, 1);
  const Item item = writesThrough(body, node.text) ? Item::reference : Item::value;
  CodePtr variable = place(node);
  return eachAction(std::move(variable), std::move(list), item, sequence(body));
}

ActionPtr Binder::attempt(const Node& node) {
  Attempt result;
  result.body = sequence(child(node, 0));
  const Node& message = child(node, 2);
  const Node& number = child(node, 3);
  if (message.kind == NodeKind::variable)
    result.message = place(message);
  if (number.kind == NodeKind::variable)
    result.number = place(number);
  else if (number.kind == NodeKind::integer)
    result.only = number.integer;
  if (child(node, 1).kind != NodeKind::none)
    result.rescue = sequence(node.children[1]);
  return attemptAction(std::move(result));
}

ActionPtr Binder::consider(const Node& node) {
  if (node.children.empty())
    corrupt();
  std::vector<std::string> what;
  for (std::size_t i = 0; i + 1 < node.children.size(); ++i)
    what.push_back(node.children[i].text);
  const Attention attention =
      node.kind == NodeKind::considering ? Attention::considering : Attention::ignoring;
  const Node& last = node.children.back();
  if (last.kind == NodeKind::block)
    return considerAction(attention, std::move(what), sequence(last));
  Sequence inner;
  inner.add(consider(last));
  return considerAction(attention, std::move(what), std::move(inner));
}

// A script object inside a handler is made each time the handler comes by.
ActionPtr Binder::innerScript(const Node& node) {
  CodePtr script = scriptCode(Binder(heap_, this).script(child(node, 0), node.text));
  return node.text.empty() ? expressionAction(std::move(script), PriorResult::used)
                           : setAction(place(node), std::move(script), Keeping::shares);
}

} // namespace tavrel::script
