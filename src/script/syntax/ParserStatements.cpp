#include "script/syntax/Parser.h"

#include <array>
#include <utility>

namespace tavrel::script {

Node Parser::block(BlockEndings endings) {
  const Nesting nesting(*this);
  Node result = node(NodeKind::block);
  skipLines();
  const auto ends = [&] {
    if (peek().kind == TokenKind::end)
      return true;
    for (std::string_view words : endings)
      if (lengthOf(words) > 0)
        return true;
    return false;
  };
  while (!ends()) {
    result.children.push_back(statement());
    endLine();
  }
  return result;
}

Node Parser::statement() {
  const Nesting nesting(*this);
  const std::uint32_t start = peek().span.start;
  Node result = simpleStatement();
  setSpan(result, start);
  return result;
}

Node Parser::simpleStatement() {
  if (peek().kind != TokenKind::word || commandAt())
    return node(NodeKind::expression, {}, {expression()});
  if (auto found = keywordStatement())
    return *std::move(found);
  if (seesWord("use") && peek(1).kind == TokenKind::word)
    return use();
  const bool hasMore = peek(1).kind != TokenKind::lineEnd;
  if (hasMore && takeWord("log"))
    return node(NodeKind::log, {}, {expression()});
  if (hasMore)
    (void)takeWord("get");
  return node(NodeKind::expression, {}, {expression()});
}

// A statement that begins with a keyword.
std::optional<Node> Parser::keywordStatement() {
  using Reader = Node (Parser::*)();
  static constexpr auto readers = std::to_array<std::pair<std::string_view, Reader>>(
      {{"set", &Parser::setStatement},
       {"copy", &Parser::copyStatement},
       {"put", &Parser::copyStatement},
       {"if", &Parser::ifStatement},
       {"repeat", &Parser::repeat},
       {"try", &Parser::tryStatement},
       {"error", &Parser::errorStatement},
       {"tell", &Parser::tell},
       {"with", &Parser::withClause},
       {"using terms from", &Parser::usingTerms},
       {"on", &Parser::handler},
       {"to", &Parser::handler},
       {"script", &Parser::scriptObject},
       {"property", &Parser::propertyDeclaration},
       {"prop", &Parser::propertyDeclaration},
       {"return", &Parser::returnStatement},
       {"exit", &Parser::exitRepeat}});
  static constexpr auto kinds =
      std::to_array<std::pair<std::string_view, NodeKind>>({{"considering", NodeKind::considering},
                                                            {"ignoring", NodeKind::ignoring},
                                                            {"global", NodeKind::global},
                                                            {"local", NodeKind::local}});
  for (const auto& [words, reader] : readers)
    if (takeWords(words))
      return (this->*reader)();
  for (const auto& [word, kind] : kinds)
    if (takeWord(word))
      return kind < NodeKind::handler ? considering(kind) : declaration(kind);
  return std::nullopt;
}

Node Parser::returnStatement() {
  return node(NodeKind::returnStatement, {}, {startsExpression() ? expression() : Node{}});
}

Node Parser::setStatement() {
  Node target = reference();
  expectWord("to");
  Node value = expression();
  return node(NodeKind::set, {}, {std::move(target), std::move(value)});
}

Node Parser::copyStatement() {
  Node value = expression();
  if (!takeWord("to") && !takeWord("into"))
    expected("“to”");
  Node target = reference();
  return node(NodeKind::copy, {}, {std::move(target), std::move(value)});
}

void Parser::endBlock(std::string_view word) {
  expectWord("end");
  if (peek().kind != TokenKind::lineEnd)
    expectWord(word);
}

Node Parser::errorStatement() {
  Node result = node(NodeKind::errorStatement, {}, {{}, {}});
  if (startsExpression() && !seesWord("number"))
    result.children[0] = expression();
  while (peek().kind != TokenKind::lineEnd) {
    if (takeWord("number"))
      result.children[1] = expression();
    else if (takeWord("to"))
      (void)typeExpression();
    else if (takeWord("from") || takeWords("partial result"))
      (void)expression();
    else
      break;
  }
  return result;
}

Node Parser::tell() {
  const std::size_t known = dictionaries_.size();
  Node target = expression();
  learnTerms(target);
  Node body;
  if (takeWord("to")) {
    body = node(NodeKind::block, {}, {statement()});
  } else {
    body = block({"end"});
    endBlock("tell");
  }
  dictionaries_.resize(known);
  return node(NodeKind::tell, {}, {std::move(target), std::move(body)});
}

// Inside a `tell application "X"` the vocabulary of X is known. The name must stand in the source:
// the value of a variable is known only when the script runs.
void Parser::learnTerms(const Node& target) {
  if (target.kind != NodeKind::element || target.text != "application")
    return;
  const Node& title = target.children[1];
  std::string name = title.kind == NodeKind::text ? title.text : std::string();
  for (char& c : name)
    c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  dictionaries_.push_back(Dictionary::application);
  dictionaries_.push_back(dictionaryOf(name));
}

Node Parser::usingTerms() {
  const std::size_t known = dictionaries_.size();
  learnTerms(expression());
  if (dictionaries_.size() == known)
    expected("an application");
  Node body = block({"end"});
  expectWord("end");
  takeWords("using terms from");
  dictionaries_.resize(known);
  return body;
}

} // namespace tavrel::script
