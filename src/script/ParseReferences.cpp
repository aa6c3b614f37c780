#include "script/Parser.h"

#include <algorithm>
#include <array>

namespace tavrel::script {
namespace {

constexpr auto ordinals = std::to_array<std::pair<std::string_view, std::int64_t>>({{"first", 1},
                                                                                    {"second", 2},
                                                                                    {"third", 3},
                                                                                    {"fourth", 4},
                                                                                    {"fifth", 5},
                                                                                    {"sixth", 6},
                                                                                    {"seventh", 7},
                                                                                    {"eighth", 8},
                                                                                    {"ninth", 9},
                                                                                    {"tenth", 10},
                                                                                    {"front", 1},
                                                                                    {"last", -1},
                                                                                    {"back", -1}});

// Whether an element of the kind stands in a container that is told after `of`.
bool isPart(NodeKind kind) {
  return (kind >= NodeKind::property && kind <= NodeKind::insertionPoint) ||
         kind == NodeKind::call || kind == NodeKind::labelledCall;
}

} // namespace

Node Parser::reference() {
  const Nesting nesting(*this);
  const std::uint32_t start = peek().span.start;
  Node result = withOwners(head());
  const bool stops = stops_.ofType && lengthOf("of type") > 0;
  if (!stops && (takeWord("of") || (!stops_.in && takeWord("in")))) {
    Node container = reference();
    if (result.kind == NodeKind::variable)
      result.kind = NodeKind::property;
    if (result.kind == NodeKind::typeName)
      result.kind = NodeKind::property;
    if (!isPart(result.kind))
      expected("end of line");
    attach(result, std::move(container));
  }
  result = filtered(std::move(result));
  finish(result, start);
  return result;
}

// x's y's z
Node Parser::withOwners(Node head) {
  while (takeSymbol("'s"))
    head = filtered(ownedBy(std::move(head)));
  return head;
}

Node Parser::ownedBy(Node owner) {
  Node part = head();
  if (part.kind == NodeKind::variable || part.kind == NodeKind::typeName)
    part.kind = NodeKind::property;
  if (!isPart(part.kind))
    expected("property");
  attach(part, std::move(owner));
  return part;
}

// The innermost part without a container gets it.
void Parser::attach(Node& reference, Node container) const {
  if (reference.children.empty())
    reference.children.emplace_back();
  Node& slot = reference.children.front();
  if (slot.kind == NodeKind::none)
    slot = std::move(container);
  else if (isPart(slot.kind))
    attach(slot, std::move(container));
  else
    expected("end of line");
  grow(reference);
}

// `every file of home whose name is "a"`: the condition belongs to the elements, wherever their
// container is told.
Node Parser::filtered(Node reference) {
  const bool single = reference.kind == NodeKind::element;
  if (!single && reference.kind != NodeKind::everyElement)
    return reference;
  if (!takeWord("whose") && !takeWord("where") && !takeWord("that"))
    return reference;
  ++conditions_;
  Node condition = expression();
  --conditions_;
  Node all = node(NodeKind::filter, reference.text,
                  {std::move(reference.children[0]), std::move(condition)});
  if (!single)
    return all;
  return node(NodeKind::element, "item", {std::move(all), std::move(reference.children[1])});
}

const TypeTerm* Parser::typeAt(bool& plural, std::size_t& length) const {
  const TypeTerm* best = nullptr;
  for (const TypeTerm& type : typeTerms()) {
    if (!knows(type.dictionary))
      continue;
    const std::size_t one = lengthOf(type.name);
    const std::size_t many = type.plural.empty() ? 0 : lengthOf(type.plural);
    if (std::max(one, many) > (best ? length : 0)) {
      best = &type;
      length = std::max(one, many);
      plural = many > one;
    }
  }
  return best;
}

const NameTerm* Parser::termAt(std::span<const NameTerm> terms) const {
  for (const NameTerm& term : terms)
    if (knows(term.dictionary) && lengthOf(term.name) > 0)
      return &term;
  return nullptr;
}

// What can stand before `of`.
Node Parser::head() {
  const Nesting nesting(*this);
  const std::uint32_t start = peek().span.start;
  Node result = peek().kind == TokenKind::word ? named() : literal();
  finish(result, start);
  return result;
}

Node Parser::literal() {
  const Token token = peek();
  if (seesSymbol("{"))
    return listOrRecord();
  if (takeSymbol("(")) {
    skipLines();
    Node inner = expression();
    skipLines();
    expectSymbol(")");
    return inner;
  }
  Node result;
  switch (token.kind) {
  case TokenKind::text:
    result = node(NodeKind::text, token.text);
    break;
  case TokenKind::integer:
    if (seesOrdinalEnding()) {
      at_ += 2;
      return ordinal(token.integer);
    }
    result = node(NodeKind::integer);
    result.integer = token.integer;
    break;
  case TokenKind::real:
    result = node(NodeKind::real);
    result.real = token.real;
    break;
  case TokenKind::type:
    result = node(NodeKind::typeName, token.text);
    break;
  case TokenKind::name:
    ++at_;
    return seesSymbol("(") ? call(token.text, token.span.start)
                           : node(NodeKind::variable, token.text);
  default:
    expected("expression");
  }
  ++at_;
  return result;
}

// 2nd, without a blank
bool Parser::seesOrdinalEnding() const {
  const Span number = peek().span;
  if (peek(1).span.start != number.start + number.length)
    return false;
  return seesWord("st", 1) || seesWord("nd", 1) || seesWord("rd", 1) || seesWord("th", 1);
}

Node Parser::ordinal(std::int64_t number) {
  bool plural = false;
  std::size_t length = 0;
  const TypeTerm* type = typeAt(plural, length);
  if (!type)
    expected("class name");
  at_ += length;
  Node index = node(NodeKind::integer);
  index.integer = number;
  return node(NodeKind::element, std::string(type->name), {{}, std::move(index)});
}

// The bounds of `text from word 1 to word 3` are parts of the same container.
Node Parser::rangeEnd() {
  if (takeWord("beginning") || takeWord("end")) {
    Node result = node(NodeKind::integer);
    result.integer = tokens_[at_ - 1].text == "end" ? -1 : 1;
    return result;
  }
  return index();
}

Node Parser::elements(std::string_view type, bool plural) {
  const std::string name(type);
  if (takeWord("named")) {
    Node title = index();
    return node(NodeKind::element, name, {{}, std::move(title)});
  }
  if (name == "date" && peek().kind == TokenKind::text) {
    Node text = literal();
    return node(NodeKind::date, {}, {std::move(text)});
  }
  const bool from = seesWord("from") && name != "date";
  if (from || startsIndex()) {
    at_ += from ? 1 : 0;
    Node first = from ? rangeEnd() : index();
    if (takeWord("thru") || takeWord("through") || (from && takeWord("to"))) {
      Node last = rangeEnd();
      return node(NodeKind::elementRange, name, {{}, std::move(first), std::move(last)});
    }
    return node(NodeKind::element, name, {{}, std::move(first)});
  }
  return plural ? node(NodeKind::everyElement, name, {Node{}}) : node(NodeKind::typeName, name);
}

Node Parser::named() {
  const std::uint32_t start = peek().span.start;
  if (const CommandTerm* term = commandAt())
    return command(*term);
  if (takeWord("the"))
    return head();
  if (takeWord("get"))
    return expression(stops_);
  if (takeWords("a reference to") || takeWords("reference to") || takeWords("ref to")) {
    Node target = reference();
    return node(NodeKind::refer, {}, {std::move(target)});
  }
  if (seesWord("true") || seesWord("false")) {
    Node result = node(NodeKind::boolean);
    result.integer = tokens_[at_++].text == "true" ? 1 : 0;
    return result;
  }
  if (takeWord("me"))
    return node(NodeKind::me);
  if (takeWord("it"))
    return node(NodeKind::it);
  if (takeWord("result"))
    return node(NodeKind::result);
  if (takeWords("current application"))
    return node(NodeKind::currentApplication);
  if (takeWord("my"))
    return ownedBy(node(NodeKind::me));
  if (takeWord("its"))
    return ownedBy(node(NodeKind::it));
  if (takeWord("continue")) {
    Node inner = head();
    return node(NodeKind::resume, {}, {std::move(inner)});
  }
  if (takeWords("missing value"))
    return node(NodeKind::missing);
  if (takeWord("return"))
    return node(NodeKind::text, "\r");
  if (takeWord("script"))
    return node(NodeKind::typeName, "script");
  if (seesWord("beginning") || seesWord("end")) {
    const std::string place = tokens_[at_++].text;
    return node(NodeKind::insertionPoint, place, {Node{}});
  }
  if (takeWord("every")) {
    bool plural = false;
    std::size_t length = 0;
    const TypeTerm* type = typeAt(plural, length);
    if (!type)
      expected("class name");
    at_ += length;
    return node(NodeKind::everyElement, std::string(type->name), {Node{}});
  }
  if (seesWord("middle") || seesWord("some")) {
    const bool isMiddle = tokens_[at_++].text == "middle";
    Node result = ordinal(1);
    result.kind = isMiddle ? NodeKind::middleElement : NodeKind::someElement;
    result.children.pop_back();
    return result;
  }
  if (takeWords("number of")) {
    Node counted = reference();
    return node(NodeKind::command, "count", {std::move(counted)});
  }
  for (const auto& [word, number] : ordinals)
    if (seesWord(word) && peek(1).kind == TokenKind::word) {
      ++at_;
      return ordinal(number);
    }
  if (const NameTerm* property = termAt(propertyTerms())) {
    at_ += lengthOf(property->name);
    return node(NodeKind::property, std::string(property->name), {Node{}});
  }
  if (const NameTerm* constant = termAt(constantTerms())) {
    at_ += lengthOf(constant->name);
    return node(NodeKind::constant, std::string(constant->name));
  }
  bool plural = false;
  std::size_t length = 0;
  if (const TypeTerm* type = typeAt(plural, length)) {
    at_ += length;
    // `whose class is text` asks each element for its class.
    if (type->name == "class" && conditions_ > 0)
      return node(NodeKind::property, "class", {Node{}});
    return elements(type->name, plural);
  }
  const std::string name = identifier();
  if (seesSymbol("("))
    return call(name, start);
  if (labelledHandlers_.contains(name))
    return labelledCall(name, start);
  return node(NodeKind::variable, name);
}

} // namespace tavrel::script
