#include "script/syntax/Parser.h"

#include "script/syntax/Lexer.h"

#include <algorithm>

namespace tavrel::script {
namespace {

constexpr std::size_t longestSource = 16U << 20U;

std::string descriptionOf(const Token& token) {
  switch (token.kind) {
  case TokenKind::lineEnd:
    return "end of line";
  case TokenKind::end:
    return "end of script";
  case TokenKind::integer:
  case TokenKind::real:
    return "number";
  case TokenKind::word:
    return isReserved(token.text) ? "“" + token.text + "”" : std::string("identifier");
  case TokenKind::name:
    return "identifier";
  case TokenKind::text:
    return "text";
  case TokenKind::type:
    return "class name";
  case TokenKind::symbol:
    break;
  }
  return "“" + token.text + "”";
}

std::string_view takeFirstWord(std::string_view& words) {
  const std::size_t blank = std::min(words.find(' '), words.size());
  const std::string_view first = words.substr(0, blank);
  words.remove_prefix(std::min(blank + 1, words.size()));
  return first;
}

} // namespace

Parser::Parser(std::vector<Token> tokens) : tokens_(std::move(tokens)) {
  noteLabelledHandlers();
}

const Token& Parser::peek(std::size_t ahead) const {
  return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
}

bool Parser::seesWord(std::string_view word, std::size_t ahead) const {
  return peek(ahead).kind == TokenKind::word && peek(ahead).text == word;
}

bool Parser::seesSymbol(std::string_view symbol, std::size_t ahead) const {
  return peek(ahead).kind == TokenKind::symbol && peek(ahead).text == symbol;
}

std::size_t Parser::lengthOf(std::string_view words) const {
  std::size_t count = 0;
  while (!words.empty())
    if (!seesWord(takeFirstWord(words), count++))
      return 0;
  return count;
}

bool Parser::takeWord(std::string_view word) {
  const bool sees = seesWord(word);
  at_ += sees ? 1 : 0;
  return sees;
}

bool Parser::takeSymbol(std::string_view symbol) {
  const bool sees = seesSymbol(symbol);
  at_ += sees ? 1 : 0;
  return sees;
}

bool Parser::takeWords(std::string_view words) {
  const std::size_t length = lengthOf(words);
  at_ += length;
  return length > 0;
}

void Parser::expectWord(std::string_view word) {
  if (!takeWord(word))
    expected("“" + std::string(word) + "”");
}

void Parser::expectSymbol(std::string_view symbol) {
  if (!takeSymbol(symbol))
    expected("“" + std::string(symbol) + "”");
}

void Parser::endLine() {
  if (peek().kind != TokenKind::lineEnd)
    expected("end of line");
  skipLines();
}

void Parser::skipLines() {
  while (peek().kind == TokenKind::lineEnd)
    ++at_;
}

bool Parser::seesIdentifier() const {
  const Token& token = peek();
  return token.kind == TokenKind::name ||
         (token.kind == TokenKind::word && !isReserved(token.text));
}

std::string Parser::identifier() {
  if (!seesIdentifier())
    expected("identifier");
  return tokens_[at_++].text;
}

bool Parser::knows(Dictionary dictionary) const {
  return dictionary == Dictionary::language ||
         std::find(dictionaries_.begin(), dictionaries_.end(), dictionary) != dictionaries_.end();
}

void Parser::expected(std::string_view what) const {
  throw ScriptError{errors::syntax,
                    "Expected " + std::string(what) + " but found " + descriptionOf(peek()) + ".",
                    peek().span};
}

Node Parser::node(NodeKind kind, std::string text, Children children) {
  Node result;
  result.kind = kind;
  result.span = peek().span;
  result.text = std::move(text);
  result.children = std::move(children.nodes);
  updateHeight(result);
  return result;
}

void Parser::updateHeight(Node& node) const {
  for (const Node& child : node.children)
    node.height =
        std::max<std::uint16_t>(node.height, static_cast<std::uint16_t>(child.height + 1));
  if (node.height > highestExpression)
    throw ScriptError{errors::stackOverflow, "The expression is too long.", peek().span};
}

void Parser::setSpan(Node& node, std::uint32_t start) const {
  const Span last = tokens_[at_ > 0 ? at_ - 1 : 0].span;
  node.span = {start, std::max(last.start + last.length, start) - start};
}

Node Parser::script() {
  Node result = block({});
  if (peek().kind != TokenKind::end)
    expected("end of script");
  return result;
}

Nesting::Nesting(Parser& parser) : parser_(parser) {
  if (++parser_.depth_ > deepestNesting) {
    --parser_.depth_;
    throw ScriptError{errors::stackOverflow, "The script nests too deep.", parser_.peek().span};
  }
}

Nesting::~Nesting() {
  --parser_.depth_;
}

Node parseScript(std::string_view source) {
  if (source.size() > longestSource)
    throw ScriptError{errors::outOfMemory, "The script is too long."};
  return Parser(tokenize(source)).script();
}

} // namespace tavrel::script
