#include "script/additions/Additions.h"
#include "script/binding/Binder.h"

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

CodePtr Binder::expression(const Node& node) {
  CodePtr code = plainExpression(node);
  const_cast<Code&>(*code).span = node.span;
  return code;
}

CodePtr Binder::optional(const Node& node) {
  return node.kind == NodeKind::none ? nullptr : expression(node);
}

std::vector<CodePtr> Binder::expressions(const Node& node, std::size_t from) {
  std::vector<CodePtr> result;
  for (std::size_t i = from; i < node.children.size(); ++i)
    result.push_back(expression(node.children[i]));
  return result;
}

std::vector<LabelledCode> Binder::entries(const Node& node, std::size_t from) {
  std::vector<LabelledCode> result;
  for (std::size_t i = from; i < node.children.size(); ++i) {
    if (node.children[i].kind != NodeKind::entry)
      corrupt();
    result.emplace_back(symbol(node.children[i].text), expression(child(node.children[i], 0)));
  }
  return result;
}

CodePtr Binder::plainExpression(const Node& node) {
  const auto text = [&] { return Value(Ref(new Text(heap_, node.text))); };
  const auto container = [&] {
    return node.children.empty() ? nullptr : optional(node.children[0]);
  };
  switch (node.kind) {
  case NodeKind::missing:
    return constantCode(Value::missing());
  case NodeKind::boolean:
    return constantCode(Value::boolean(node.integer != 0));
  case NodeKind::integer:
    return constantCode(Value::integer(node.integer));
  case NodeKind::real:
    return constantCode(Value::real(node.real));
  case NodeKind::text:
    return constantCode(text());
  case NodeKind::constant:
    return constantCode(node.text == "missing value" ? Value::missing()
                                                     : Value::constant(node.text));
  case NodeKind::typeName:
    return constantCode(Value::typeName(node.text));
  case NodeKind::list:
    return listCode(expressions(node, 0));
  case NodeKind::record:
    return recordCode(entries(node, 0));
  case NodeKind::date:
    return dateCode(expression(child(node, 0)));
  case NodeKind::variable: {
    CodePtr code = variable(symbol(node.text));
    code = code ? std::move(code) : predefined(heap_, node.text);
    return code ? std::move(code) : unknownCode(symbol(node.text));
  }
  case NodeKind::me:
    return meCode();
  case NodeKind::it:
    return itCode();
  case NodeKind::result:
    return resultCode();
  case NodeKind::currentApplication:
    return applicationCode(constantCode(Value(Ref(new Text(heap_, "Tavrel")))));
  case NodeKind::negate:
    return negationCode(expression(child(node, 0)));
  case NodeKind::invert:
    return inversionCode(expression(child(node, 0)));
  case NodeKind::binary:
    return comparison(node);
  case NodeKind::cast:
    return castCode(expression(child(node, 0)), expression(child(node, 1)));
  case NodeKind::refer:
    return referenceCode(expression(child(node, 0)));
  case NodeKind::property:
    return propertyCode(symbol(node.text), container());
  case NodeKind::element:
    return element(node);
  case NodeKind::elementRange:
    return range(node);
  case NodeKind::everyElement:
    return everyCode(node.text, container());
  case NodeKind::middleElement:
    return pickCode(Pick::middle, node.text, container());
  case NodeKind::someElement:
    return pickCode(Pick::some, node.text, container());
  case NodeKind::filter:
    return filterCode(node.text, container(), expression(child(node, 1)));
  case NodeKind::insertionPoint:
    return insertionCode(node.text == "end" ? Place::end : Place::beginning, container());
  case NodeKind::call:
  case NodeKind::labelledCall:
  case NodeKind::resume:
    return call(node);
  case NodeKind::command:
    return commandCode(node.text, additionNamed(node.text), optional(child(node, 0)),
                       entries(node, 1));
  default:
    throw ScriptError{errors::syntax, "Expected expression.", node.span};
  }
}

// `application "X" is running` asks for a property.
CodePtr Binder::comparison(const Node& node) {
  CodePtr left = expression(child(node, 0));
  if (!isRunningTest(node))
    return operatorCode(node.text, std::move(left), expression(child(node, 1)));
  CodePtr running = propertyCode(symbol("running"), std::move(left));
  return node.text == "=" ? std::move(running) : inversionCode(std::move(running));
}

CodePtr Binder::element(const Node& node) {
  CodePtr key = expression(child(node, 1));
  if (node.text == "application")
    return applicationCode(std::move(key));
  if (node.text == "date" && node.children[0].kind == NodeKind::none)
    return dateCode(std::move(key));
  if (node.text == "posix file" || node.text == "alias")
    return fileCode(node.text, std::move(key));
  return elementCode(node.text, optional(node.children[0]), std::move(key));
}

// In `text from word 1 to word 3` the bounds say which elements they count.
CodePtr Binder::range(const Node& node) {
  const auto bound = [&](const Node& end) {
    if (end.kind == NodeKind::element)
      return BoundCode{end.text, expression(child(end, 1))};
    return BoundCode{node.text == "text" ? "character" : node.text, expression(end)};
  };
  BoundCode first = bound(child(node, 1));
  BoundCode last = bound(child(node, 2));
  return rangeCode(node.text, optional(node.children[0]), std::move(first), std::move(last));
}

CodePtr Binder::call(const Node& node) {
  if (node.kind == NodeKind::resume) {
    const Node& inner = child(node, 0);
    if (inner.kind == NodeKind::labelledCall)
      return labelledResumeCode(symbol(inner.text), labelled(inner));
    const bool isCall = inner.kind == NodeKind::call;
    return resumeCode(symbol(isCall || inner.kind == NodeKind::variable ? inner.text : "run"),
                      isCall ? expressions(inner, 1) : std::vector<CodePtr>());
  }
  const std::string* name = symbol(node.text);
  CodePtr target = optional(child(node, 0));
  if (node.kind == NodeKind::call)
    return callCode(name, std::move(target), expressions(node, 1));
  return labelledCallCode(name, std::move(target), labelled(node));
}

// The arguments of a labelled call, the direct one under "of".
std::vector<LabelledCode> Binder::labelled(const Node& call) {
  std::vector<LabelledCode> arguments = entries(call, 2);
  if (CodePtr direct = optional(child(call, 1)))
    arguments.emplace_back(symbol("of"), std::move(direct));
  return arguments;
}

CodePtr Binder::assignable(const Node& node) {
  if (node.kind == NodeKind::variable)
    return place(node);
  if (node.kind != NodeKind::list)
    return expression(node);
  std::vector<CodePtr> places;
  for (const Node& each : node.children)
    places.push_back(assignable(each));
  return patternCode(std::move(places));
}

} // namespace tavrel::script
