#include "script/syntax/Parser.h"

#include <utility>

namespace tavrel::script {

// `use AppleScript` and `use scripting additions` ask for what is always there; frameworks and
// libraries are not to be had.
Node Parser::use() {
  expectWord("use");
  if (takeWord("applescript")) {
    if (takeWord("version") && peek().kind != TokenKind::text)
      expected("text");
    at_ += peek().kind == TokenKind::text ? 1 : 0;
  } else if (takeWords("scripting additions")) {
    if (takeWord("with") || takeWord("without"))
      expectWord("importing");
  } else {
    expected("“AppleScript” or “scripting additions”");
  }
  return node(NodeKind::block);
}

Node Parser::handler() {
  Node result = node(NodeKind::handler, identifier());
  if (takeSymbol("("))
    handlerParameters(result);
  else if (peek().kind != TokenKind::lineEnd)
    labelledParameters(result);
  const int outer = std::exchange(loopDepth_, 0);
  result.children.push_back(block({"end"}));
  loopDepth_ = outer;
  expectWord("end");
  if (peek().kind != TokenKind::lineEnd && identifier() != result.text)
    expected("the name of the handler");
  return result;
}

void Parser::handlerParameters(Node& handler) {
  if (takeSymbol(")"))
    return;
  do
    handler.children.push_back(parameter({}));
  while (takeSymbol(","));
  expectSymbol(")");
}

// `on foo of x at y given z:w`, or a direct parameter without a label as in `on run arguments`.
void Parser::labelledParameters(Node& handler) {
  if (seesSymbol("{") || (seesIdentifier() && prepositionAt().empty()))
    handler.children.push_back(parameter({}));
  while (peek().kind != TokenKind::lineEnd) {
    if (takeWord("given")) {
      do {
        const std::string label = identifier();
        expectSymbol(":");
        handler.children.push_back(parameter(label));
      } while (takeSymbol(","));
    } else if (takeWord("of") || takeWord("in")) {
      handler.children.push_back(parameter("of"));
    } else {
      const std::string label = prepositionAt();
      if (label.empty() || !takeWords(label))
        expected("end of line");
      handler.children.push_back(parameter(label));
    }
  }
}

Node Parser::parameter(std::string label) {
  const bool isPattern = seesSymbol("{");
  Node pattern = isPattern ? listOrRecord() : Node{};
  Node result = node(NodeKind::parameter, isPattern ? std::string() : identifier());
  if (!label.empty() || isPattern)
    result.children.push_back(label.empty() ? Node{} : node(NodeKind::text, std::move(label)));
  if (isPattern)
    result.children.push_back(std::move(pattern));
  updateHeight(result);
  return result;
}

Node Parser::scriptObject() {
  const std::string name = seesIdentifier() ? identifier() : std::string();
  const int outer = std::exchange(loopDepth_, 0);
  Node body = block({"end"});
  loopDepth_ = outer;
  endBlock("script");
  return node(NodeKind::script, name, {std::move(body)});
}

Node Parser::propertyDeclaration() {
  const std::string name = identifier();
  expectSymbol(":");
  Node value = expression();
  return node(NodeKind::propertyDeclaration, name, {std::move(value)});
}

Node Parser::declaration(NodeKind kind) {
  Node result = node(kind);
  do {
    const std::string name = identifier();
    result.children.push_back(node(NodeKind::variable, name));
  } while (takeSymbol(","));
  return result;
}

// A call like `foo of x at y` reads like a reference to a property until the name is known to be
// that of a handler, and the handler may stand further down: so their names are collected first.
void Parser::noteLabelledHandlers() {
  for (; peek().kind != TokenKind::end; ++at_) {
    const bool defines = (seesWord("on") || seesWord("to")) && !seesWord("error", 1);
    const bool lineStarts = at_ == 0 || tokens_[at_ - 1].kind == TokenKind::lineEnd;
    if (!defines || !lineStarts || peek(2).kind != TokenKind::word)
      continue;
    const std::string& next = peek(2).text;
    const bool isTwoWords = isPreposition(next + " " + peek(3).text);
    if (next == "of" || next == "in" || next == "given" || isTwoWords || isPreposition(next))
      labelledHandlers_.insert(peek(1).text);
  }
  at_ = 0;
}

} // namespace tavrel::script
