#include "script/additions/Additions.h"
#include "script/binding/Binder.h"
#include "script/binding/Predefined.h"
#include "script/running/CallExpressions.h"
#include "script/running/ElementExpressions.h"
#include "script/running/OperatorExpressions.h"
#include "script/running/PropertyExpression.h"
#include "script/running/ValueExpressions.h"
#include "script/running/Variables.h"

#include <algorithm>

namespace tavrel::script {
namespace {

bool isRunningTest(const Node& node) {
  return node.kind == NodeKind::binary && (node.text == "=" || node.text == "≠") &&
         node.children.size() == 2 && node.children[1].text == "running" &&
         (node.children[1].kind == NodeKind::variable ||
          node.children[1].kind == NodeKind::property);
}

} // namespace

ExpressionPtr Binder::bindExpression(const Node& node) {
  ExpressionPtr result = bindExpressionKind(node);
  const_cast<Expression&>(*result).span = node.span;
  return result;
}

ExpressionPtr Binder::bindOptional(const Node& node) {
  return node.kind == NodeKind::none ? nullptr : bindExpression(node);
}

std::vector<ExpressionPtr> Binder::bindExpressions(const Node& node, std::size_t from) {
  std::vector<ExpressionPtr> result;
  for (std::size_t i = from; i < node.children.size(); ++i)
    result.push_back(bindExpression(node.children[i]));
  return result;
}

std::vector<LabelledExpression> Binder::bindEntries(const Node& node, std::size_t from) {
  std::vector<LabelledExpression> result;
  for (std::size_t i = from; i < node.children.size(); ++i) {
    if (node.children[i].kind != NodeKind::entry)
      corrupt();
    result.emplace_back(symbol(node.children[i].text), bindExpression(child(node.children[i], 0)));
  }
  return result;
}

ExpressionPtr Binder::bindExpressionKind(const Node& node) {
  const auto text = [&] { return Value(Ref(new Text(heap_, node.text))); };
  const auto container = [&] {
    return node.children.empty() ? nullptr : bindOptional(node.children[0]);
  };
  switch (node.kind) {
  case NodeKind::missing:
    return constantExpression(Value::missing());
  case NodeKind::boolean:
    return constantExpression(Value::boolean(node.integer != 0));
  case NodeKind::integer:
    return constantExpression(Value::integer(node.integer));
  case NodeKind::real:
    return constantExpression(Value::real(node.real));
  case NodeKind::text:
    return constantExpression(text());
  case NodeKind::constant:
    return constantExpression(node.text == "missing value" ? Value::missing()
                                                           : Value::constant(node.text));
  case NodeKind::typeName:
    return constantExpression(Value::typeName(node.text));
  case NodeKind::list:
    return listExpression(bindExpressions(node, 0));
  case NodeKind::record:
    return recordExpression(bindEntries(node, 0));
  case NodeKind::date:
    return dateExpression(bindExpression(child(node, 0)));
  case NodeKind::variable:
    return bindName(node.text);
  case NodeKind::me:
    return meExpression();
  case NodeKind::it:
    return itExpression();
  case NodeKind::result:
    return resultExpression();
  case NodeKind::currentApplication:
    return applicationExpression(constantExpression(Value(Ref(new Text(heap_, "Tavrel")))));
  case NodeKind::negate:
    return negationExpression(bindExpression(child(node, 0)));
  case NodeKind::logicalNot:
    return notExpression(bindExpression(child(node, 0)));
  case NodeKind::binary:
    return bindComparison(node);
  case NodeKind::cast:
    return castExpression(bindExpression(child(node, 0)), bindExpression(child(node, 1)));
  case NodeKind::reference:
    return referenceExpression(bindExpression(child(node, 0)));
  case NodeKind::property:
    return propertyExpression(symbol(node.text), container());
  case NodeKind::element:
    return bindElement(node);
  case NodeKind::elementRange:
    return bindRange(node);
  case NodeKind::everyElement:
    return everyElementExpression(node.text, container());
  case NodeKind::middleElement:
    return pickedElementExpression(PickedElement::middle, node.text, container());
  case NodeKind::someElement:
    return pickedElementExpression(PickedElement::some, node.text, container());
  case NodeKind::filter:
    return filterExpression(node.text, container(), bindExpression(child(node, 1)));
  case NodeKind::insertionPoint:
    return insertionPointExpression(
        node.text == "end" ? InsertionPoint::end : InsertionPoint::beginning, container());
  case NodeKind::call:
  case NodeKind::labelledCall:
  case NodeKind::continueCall:
    return bindCall(node);
  case NodeKind::command:
    return commandExpression(node.text, additionNamed(node.text), bindOptional(child(node, 0)),
                             bindEntries(node, 1));
  default:
    throw ScriptError{errors::syntax, "Expected expression.", node.span};
  }
}

ExpressionPtr Binder::bindName(const std::string& name) {
  if (ExpressionPtr result = findVariable(symbol(name)))
    return result;
  Value value = predefinedValue(heap_, name);
  return value.is(ValueKind::undefined) ? undeclaredName(symbol(name))
                                        : constantExpression(std::move(value));
}

// `application "X" is running` asks for a property.
ExpressionPtr Binder::bindComparison(const Node& node) {
  ExpressionPtr left = bindExpression(child(node, 0));
  if (!isRunningTest(node))
    return operatorExpression(node.text, std::move(left), bindExpression(child(node, 1)));
  ExpressionPtr running = propertyExpression(symbol("running"), std::move(left));
  return node.text == "=" ? std::move(running) : notExpression(std::move(running));
}

ExpressionPtr Binder::bindElement(const Node& node) {
  ExpressionPtr key = bindExpression(child(node, 1));
  if (node.text == "application")
    return applicationExpression(std::move(key));
  if (node.text == "date" && node.children[0].kind == NodeKind::none)
    return dateExpression(std::move(key));
  if (node.text == "posix file" || node.text == "alias")
    return fileExpression(node.text, std::move(key));
  return elementExpression(node.text, bindOptional(node.children[0]), std::move(key));
}

// In `text from word 1 to word 3` each bound names the class that it counts.
ExpressionPtr Binder::bindRange(const Node& node) {
  const auto bound = [&](const Node& end) {
    if (end.kind == NodeKind::element)
      return BoundExpression{end.text, bindExpression(child(end, 1))};
    return BoundExpression{node.text == "text" ? "character" : node.text, bindExpression(end)};
  };
  BoundExpression first = bound(child(node, 1));
  BoundExpression last = bound(child(node, 2));
  return elementRangeExpression(node.text, bindOptional(node.children[0]), std::move(first),
                                std::move(last));
}

ExpressionPtr Binder::bindCall(const Node& node) {
  if (node.kind == NodeKind::continueCall) {
    const Node& inner = child(node, 0);
    if (inner.kind == NodeKind::labelledCall)
      return labelledContinueExpression(symbol(inner.text), bindArguments(inner));
    const bool isCall = inner.kind == NodeKind::call;
    return continueExpression(
        symbol(isCall || inner.kind == NodeKind::variable ? inner.text : "run"),
        isCall ? bindExpressions(inner, 1) : std::vector<ExpressionPtr>());
  }
  const std::string* name = symbol(node.text);
  ExpressionPtr target = bindOptional(child(node, 0));
  if (node.kind == NodeKind::call)
    return callExpression(name, std::move(target), bindExpressions(node, 1));
  return labelledCallExpression(name, std::move(target), bindArguments(node));
}

// The arguments of a labelled call, the direct one under "of".
std::vector<LabelledExpression> Binder::bindArguments(const Node& call) {
  std::vector<LabelledExpression> arguments = bindEntries(call, 2);
  if (ExpressionPtr direct = bindOptional(child(call, 1)))
    arguments.emplace_back(symbol("of"), std::move(direct));
  return arguments;
}

ExpressionPtr Binder::bindTarget(const Node& node) {
  if (node.kind == NodeKind::variable)
    return bindAssignedVariable(node);
  if (node.kind != NodeKind::list)
    return bindExpression(node);
  std::vector<ExpressionPtr> targets;
  for (const Node& each : node.children)
    targets.push_back(bindTarget(each));
  return patternExpression(std::move(targets));
}

} // namespace tavrel::script
