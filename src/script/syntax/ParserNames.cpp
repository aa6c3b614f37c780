#include "script/syntax/Parser.h"

#include <array>

namespace tavrel::script {
namespace {

// Words, and the kinds of nodes that they are.
constexpr auto plainWords = std::to_array<std::pair<std::string_view, NodeKind>>(
    {{"me", NodeKind::me},
     {"it", NodeKind::it},
     {"result", NodeKind::result},
     {"current application", NodeKind::currentApplication},
     {"missing value", NodeKind::missing}});

} // namespace

// An operand of `of`: a literal, a name, an element, a call, or an expression in parentheses.
Node Parser::primary() {
  const Nesting nesting(*this);
  const std::uint32_t start = peek().span.start;
  Node result = peek().kind == TokenKind::word ? named() : literal();
  setSpan(result, start);
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

Node Parser::named() {
  const std::uint32_t start = peek().span.start;
  if (const CommandTerm* term = commandAt())
    return command(*term);
  if (auto found = fixedWord())
    return *std::move(found);
  if (auto found = phrase())
    return *std::move(found);
  if (auto found = pickedElements())
    return *std::move(found);
  if (auto found = term())
    return *std::move(found);
  const std::string name = identifier();
  if (seesSymbol("("))
    return call(name, start);
  if (labelledHandlers_.contains(name))
    return labelledCall(name, start);
  return node(NodeKind::variable, name);
}

// A keyword that is a whole operand by itself, wherever it stands.
std::optional<Node> Parser::fixedWord() {
  for (const auto& [words, kind] : plainWords)
    if (takeWords(words))
      return node(kind);
  if (takeWord("return"))
    return node(NodeKind::text, "\r");
  if (takeWord("script"))
    return node(NodeKind::typeName, "script");
  if (!seesWord("true") && !seesWord("false"))
    return std::nullopt;
  Node result = node(NodeKind::boolean);
  result.integer = tokens_[at_++].text == "true" ? 1 : 0;
  return result;
}

// A keyword that begins an operand, as `my` or `a reference to`.
std::optional<Node> Parser::phrase() {
  if (takeWord("the"))
    return primary();
  if (takeWord("get"))
    return expression(stopWords_);
  if (takeWord("my"))
    return ownedBy(node(NodeKind::me));
  if (takeWord("its"))
    return ownedBy(node(NodeKind::it));
  if (takeWords("a reference to") || takeWords("reference to") || takeWords("ref to"))
    return node(NodeKind::reference, {}, {reference()});
  if (takeWord("continue"))
    return node(NodeKind::continueCall, {}, {primary()});
  if (takeWords("number of"))
    return node(NodeKind::command, "count", {reference()});
  if (!seesWord("beginning") && !seesWord("end"))
    return std::nullopt;
  const std::string point = tokens_[at_++].text;
  return node(NodeKind::insertionPoint, point, {Node{}});
}

const NameTerm* Parser::termAt(std::span<const NameTerm> terms) const {
  for (const NameTerm& term : terms)
    if (knows(term.dictionary) && lengthOf(term.name) > 0)
      return &term;
  return nullptr;
}

// A property, constant or class of the vocabularies that are known here.
std::optional<Node> Parser::term() {
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
  const TypeTerm* type = typeAt(plural, length);
  if (!type)
    return std::nullopt;
  at_ += length;
  // `whose class is text` asks each element for its class.
  if (type->name == "class" && conditionDepth_ > 0)
    return node(NodeKind::property, "class", {Node{}});
  return elements(type->name, plural);
}

} // namespace tavrel::script
