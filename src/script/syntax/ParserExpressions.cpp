#include "script/syntax/Parser.h"

#include <array>
#include <utility>

namespace tavrel::script {
namespace {

// The precedence of operators, the loosest first.
enum Precedence : int {
  disjunction,
  conjunction,
  inversion,
  comparing,
  casting,
  joining,
  adding,
  multiplying,
  raising,
  negation
};

constexpr auto operators = std::to_array<std::pair<int, std::string_view>>({{disjunction, "or"},
                                                                            {conjunction, "and"},
                                                                            {joining, "&"},
                                                                            {adding, "+"},
                                                                            {adding, "-"},
                                                                            {multiplying, "*"},
                                                                            {multiplying, "/"},
                                                                            {multiplying, "div"},
                                                                            {multiplying, "mod"},
                                                                            {raising, "^"}});

// Comparisons in words, and the operators that they mean. Where one begins another, the longer
// stands first.
constexpr auto phrases = std::to_array<std::pair<std::string_view, std::string_view>>(
    {{"is not equal to", "≠"},
     {"is not equal", "≠"},
     {"is not greater than or equal to", "<"},
     {"is not less than or equal to", ">"},
     {"is not greater than or equal", "<"},
     {"is not less than or equal", ">"},
     {"is not greater than", "≤"},
     {"is not less than", "≥"},
     {"is not contained by", "is not in"},
     {"is not in", "is not in"},
     {"is greater than or equal to", "≥"},
     {"is less than or equal to", "≤"},
     {"is greater than or equal", "≥"},
     {"is less than or equal", "≤"},
     {"greater than or equal to", "≥"},
     {"less than or equal to", "≤"},
     {"is greater than", ">"},
     {"is less than", "<"},
     {"greater than or equal", "≥"},
     {"less than or equal", "≤"},
     {"greater than", ">"},
     {"less than", "<"},
     {"is equal to", "="},
     {"is equal", "="},
     {"equal to", "="},
     {"equals", "="},
     {"equal", "="},
     {"is contained by", "is in"},
     {"is in", "is in"},
     {"is not", "≠"},
     {"is", "="},
     {"comes before", "<"},
     {"comes after", ">"},
     {"does not come before", "≥"},
     {"does not come after", "≤"},
     {"does not equal", "≠"},
     {"does not contain", "does not contain"},
     {"contains", "contains"},
     {"contain", "contains"},
     {"starts with", "starts with"},
     {"start with", "starts with"},
     {"begins with", "starts with"},
     {"begin with", "starts with"},
     {"ends with", "ends with"},
     {"end with", "ends with"}});

} // namespace

Node Parser::expression() {
  return expression(StopWords{});
}

Node Parser::expression(StopWords stopWords) {
  const Nesting nesting(*this);
  const StopWords outer = std::exchange(stopWords_, stopWords);
  Node result = binaryChain(disjunction);
  stopWords_ = outer;
  return result;
}

std::string Parser::operatorAt(int level) {
  if (level == comparing)
    return comparison();
  for (const auto& [where, name] : operators)
    if (where == level && (seesWord(name) || seesSymbol(name))) {
      ++at_;
      return std::string(name);
    }
  return {};
}

std::string Parser::comparison() {
  for (std::string_view symbol : {"=", "≠", "<", ">", "≤", "≥"})
    if (takeSymbol(symbol))
      return std::string(symbol);
  return comparisonPhrase();
}

std::string Parser::comparisonPhrase() {
  for (const auto& [words, meaning] : phrases)
    if (takeWords(words))
      return std::string(meaning);
  return {};
}

Node Parser::binaryChain(int level) {
  if (level == inversion || level >= negation)
    return unary(level);
  const std::uint32_t start = peek().span.start;
  Node left = binaryChain(level + 1);
  if (level == casting)
    return casts(std::move(left), start);
  if (level == comparing && takeWord("exists"))
    left = node(NodeKind::command, "exists", {std::move(left)});
  for (std::string name = operatorAt(level); !name.empty(); name = operatorAt(level)) {
    Node right = level == raising ? power() : binaryChain(level + 1);
    left = node(NodeKind::binary, std::move(name), {std::move(left), std::move(right)});
    setSpan(left, start);
  }
  return left;
}

// In `x as text & "a"` the `&` applies to the cast value: a class is no operand, though `&` binds
// tighter than `as`.
Node Parser::casts(Node value, std::uint32_t start) {
  bool isCast = false;
  while (true) {
    if (!stopWords_.as && takeWord("as")) {
      Node type = typeExpression();
      value = node(NodeKind::cast, {}, {std::move(value), std::move(type)});
      isCast = true;
    } else if (!isCast || !continuesAfterCast(value)) {
      return value;
    }
    setSpan(value, start);
  }
}

bool Parser::continuesAfterCast(Node& value) {
  for (int level : {joining, adding, multiplying})
    if (std::string name = operatorAt(level); !name.empty()) {
      Node right = binaryChain(level + 1);
      value = node(NodeKind::binary, std::move(name), {std::move(value), std::move(right)});
      return true;
    }
  return false;
}

// The right side of `^`, which groups from the right: 2 ^ 3 ^ 2 is 2 ^ 9.
Node Parser::power() {
  const Nesting nesting(*this);
  return binaryChain(raising);
}

Node Parser::unary(int level) {
  const Nesting nesting(*this);
  const std::uint32_t start = peek().span.start;
  const bool inverts = level == inversion && takeWord("not");
  const bool negates = level >= negation && takeSymbol("-");
  if (level >= negation && !negates && takeSymbol("+"))
    return unary(level);
  if (!inverts && !negates)
    return level == inversion ? binaryChain(comparing) : reference();
  Node operand = unary(level);
  Node result = node(inverts ? NodeKind::logicalNot : NodeKind::negate, {}, {std::move(operand)});
  setSpan(result, start);
  return result;
}

Node Parser::typeExpression() {
  if (peek().kind == TokenKind::type)
    return node(NodeKind::typeName, tokens_[at_++].text);
  if (takeWords("alias list"))
    return node(NodeKind::typeName, "alias list");
  bool plural = false;
  std::size_t length = 0;
  if (const TypeTerm* type = typeAt(plural, length)) {
    Node result = node(NodeKind::typeName, std::string(type->name));
    at_ += length;
    return result;
  }
  return reference();
}

bool Parser::startsEntry() const {
  std::size_t length = 0;
  while (peek(length).kind == TokenKind::name || peek(length).kind == TokenKind::word)
    ++length;
  return length > 0 && seesSymbol(":", length);
}

// `{a, b}` and `{}` are lists, `{name:a}` is a record.
Node Parser::listOrRecord() {
  const std::uint32_t start = peek().span.start;
  expectSymbol("{");
  skipLines();
  const bool isRecord = startsEntry();
  Node result = node(isRecord ? NodeKind::record : NodeKind::list);
  if (!seesSymbol("}"))
    do {
      skipLines();
      result.children.push_back(isRecord ? entry() : expression());
      skipLines();
    } while (takeSymbol(","));
  expectSymbol("}");
  updateHeight(result);
  setSpan(result, start);
  return result;
}

Node Parser::entry() {
  std::string label;
  if (peek().kind != TokenKind::name && peek().kind != TokenKind::word)
    expected("identifier");
  while (!seesSymbol(":") && (peek().kind == TokenKind::name || peek().kind == TokenKind::word))
    label.append(label.empty() ? "" : " ").append(tokens_[at_++].text);
  expectSymbol(":");
  Node value = expression();
  return node(NodeKind::entry, std::move(label), {std::move(value)});
}

bool Parser::startsExpression() const {
  const Token& token = peek();
  switch (token.kind) {
  case TokenKind::text:
  case TokenKind::integer:
  case TokenKind::real:
  case TokenKind::name:
  case TokenKind::type:
    return true;
  case TokenKind::symbol:
    return token.text == "(" || token.text == "{" || token.text == "-";
  case TokenKind::word:
    break;
  case TokenKind::lineEnd:
  case TokenKind::end:
    return false;
  }
  if (!isReserved(token.text))
    return true;
  for (std::string_view word :
       {"every", "some", "first",  "last",     "middle",   "front", "back", "beginning",
        "end",   "the",  "my",     "its",      "me",       "it",    "true", "false",
        "not",   "ref",  "script", "property", "continue", "return"})
    if (token.text == word)
      return true;
  return false;
}

// Whether an index or name of an element can begin here. A preposition cannot: in `make new folder
// at desktop` it is the next label of the command.
bool Parser::startsIndex() const {
  const Token& token = peek();
  if (token.kind == TokenKind::word)
    return token.text == "my" || token.text == "its" ||
           !(isReserved(token.text) || isPreposition(token.text) || token.text == "using");
  return token.kind == TokenKind::text || token.kind == TokenKind::integer ||
         token.kind == TokenKind::name || seesSymbol("(") || seesSymbol("-");
}

// The index or name of an element. It binds tighter than `of`, so it is no whole reference.
Node Parser::index() {
  const Nesting nesting(*this);
  const std::uint32_t start = peek().span.start;
  if (takeSymbol("-")) {
    Node operand = index();
    Node result = node(NodeKind::negate, {}, {std::move(operand)});
    setSpan(result, start);
    return result;
  }
  return primary();
}

} // namespace tavrel::script
