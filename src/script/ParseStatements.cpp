#include "script/Parser.h"

namespace tavrel::script {

Node Parser::block(Enders enders) {
  const Nesting nesting(*this);
  Node result = node(NodeKind::block);
  skipLines();
  const auto ends = [&] {
    if (peek().kind == TokenKind::end)
      return true;
    for (std::string_view words : enders)
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
  finish(result, start);
  return result;
}

Node Parser::simpleStatement() {
  if (peek().kind != TokenKind::word || commandAt())
    return node(NodeKind::expression, {}, {expression()});
  if (takeWord("set"))
    return setStatement();
  if (takeWord("copy") || takeWord("put"))
    return copyStatement();
  if (takeWord("if"))
    return branch();
  if (takeWord("repeat"))
    return repeat();
  if (takeWord("try"))
    return attempt();
  if (takeWord("error"))
    return fail();
  if (takeWord("tell"))
    return tell();
  if (takeWord("considering"))
    return considering(NodeKind::considering);
  if (takeWord("ignoring"))
    return considering(NodeKind::ignoring);
  if (takeWord("with"))
    return withClause();
  if (takeWords("using terms from"))
    return usingTerms();
  if (seesWord("use") && peek(1).kind == TokenKind::word)
    return use();
  if (takeWord("on") || takeWord("to"))
    return handler();
  if (takeWord("script"))
    return scriptObject();
  if (takeWord("property") || takeWord("prop"))
    return propertyDeclaration();
  if (takeWord("global"))
    return declaration(NodeKind::global);
  if (takeWord("local"))
    return declaration(NodeKind::local);
  if (takeWord("return"))
    return node(NodeKind::giveBack, {}, {startsExpression() ? expression() : Node{}});
  if (takeWord("exit"))
    return exitRepeat();
  if (seesWord("log") && peek(1).kind != TokenKind::lineEnd) {
    ++at_;
    return node(NodeKind::log, {}, {expression()});
  }
  if (seesWord("get") && peek(1).kind != TokenKind::lineEnd)
    ++at_;
  return node(NodeKind::expression, {}, {expression()});
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

Node Parser::branch() {
  Node result = node(NodeKind::branch);
  result.children.push_back(expression());
  takeWord("then");
  if (peek().kind != TokenKind::lineEnd) {
    result.children.push_back(node(NodeKind::block, {}, {statement()}));
    if (takeWord("else"))
      result.children.push_back(node(NodeKind::block, {}, {statement()}));
    return result;
  }
  result.children.push_back(block({"else", "end"}));
  while (takeWords("else if")) {
    result.children.push_back(expression());
    takeWord("then");
    result.children.push_back(block({"else", "end"}));
  }
  if (takeWord("else"))
    result.children.push_back(block({"end"}));
  endBlock("if");
  return result;
}

void Parser::endBlock(std::string_view word) {
  expectWord("end");
  if (peek().kind != TokenKind::lineEnd)
    expectWord(word);
}

Node Parser::exitRepeat() {
  if (loops_ == 0)
    throw ScriptError{errors::strayExit, "Exit statement was not in a repeat loop.", peek().span};
  takeWord("repeat");
  return node(NodeKind::exitRepeat);
}

Node Parser::loopBody() {
  ++loops_;
  Node body = block({"end"});
  --loops_;
  endBlock("repeat");
  return body;
}

Node Parser::repeat() {
  Node result = node(NodeKind::repeatForever);
  if (takeWord("with"))
    return repeatWith();
  if (takeWord("while"))
    result = node(NodeKind::repeatWhile, {}, {expression()});
  else if (takeWord("until"))
    result = node(NodeKind::repeatUntil, {}, {expression()});
  else if (peek().kind != TokenKind::lineEnd) {
    result = node(NodeKind::repeatTimes, {}, {expression()});
    takeWord("times");
  }
  result.children.push_back(loopBody());
  return result;
}

Node Parser::repeatWith() {
  const std::string variable = identifier();
  Node result;
  if (takeWord("from")) {
    result = node(NodeKind::repeatWith, variable, {expression()});
    expectWord("to");
    result.children.push_back(expression());
    result.children.push_back(takeWord("by") ? expression() : Node{});
  } else {
    expectWord("in");
    result = node(NodeKind::repeatIn, variable, {expression()});
  }
  result.children.push_back(loopBody());
  return result;
}

Node Parser::attempt() {
  Node result = node(NodeKind::attempt, {}, {block({"on error", "end"}), {}, {}, {}});
  if (takeWords("on error")) {
    errorVariables(result);
    result.children[1] = block({"end"});
  }
  endBlock(seesWord("error") ? "error" : "try");
  return result;
}

void Parser::errorVariables(Node& attempt) {
  takeWord("the");
  if (seesIdentifier() && !seesWord("number") && !seesWord("partial"))
    attempt.children[2] = node(NodeKind::variable, identifier());
  while (peek().kind != TokenKind::lineEnd) {
    const bool isNumber = takeWord("number");
    if (!isNumber && !takeWord("from") && !takeWord("to") && !takeWords("partial result"))
      expected("end of line");
    takeWord("the");
    if (isNumber)
      attempt.children[3] = errorNumber();
    else
      (void)identifier();
  }
}

// A variable that hears the number, or the one number that is caught.
Node Parser::errorNumber() {
  if (seesIdentifier())
    return node(NodeKind::variable, identifier());
  const bool isNegative = takeSymbol("-");
  if (peek().kind != TokenKind::integer)
    expected("number");
  Node result = node(NodeKind::integer);
  result.integer = isNegative ? -peek().integer : peek().integer;
  ++at_;
  return result;
}

Node Parser::fail() {
  Node result = node(NodeKind::fail, {}, {{}, {}});
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

// The terms of an application are known where it is told to do something. Its name must stand in
// the source: that of a variable is known too late.
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

// What is told that nobody knows must not pass for something considered.
std::string Parser::attribute() {
  for (std::string_view name : {"case", "white space", "hyphens", "punctuation", "diacriticals",
                                "numeric strings", "expansion", "application responses"})
    if (takeWords(name))
      return std::string(name);
  expected("“case”, “diacriticals”, “white space” or the like");
}

Node Parser::considering(NodeKind kind) {
  const Nesting nesting(*this);
  Node result = node(kind);
  do
    result.children.push_back(node(NodeKind::constant, attribute()));
  while (takeWord("and") || takeSymbol(","));
  if (takeWord("but")) {
    const bool considers = takeWord("considering");
    if (!considers)
      expectWord("ignoring");
    result.children.push_back(considering(considers ? NodeKind::considering : NodeKind::ignoring));
    return result;
  }
  result.children.push_back(block({"end"}));
  expectWord("end");
  if (!takeWord("considering"))
    takeWord("ignoring");
  return result;
}

// Answers are always waited for, and there are no transactions: only the block counts.
Node Parser::withClause() {
  const bool isTimeout = takeWord("timeout");
  if (!isTimeout)
    expectWord("transaction");
  if (isTimeout && takeWord("of")) {
    (void)expression();
    if (!takeWord("seconds"))
      expectWord("second");
  }
  Node body = block({"end"});
  endBlock(isTimeout ? "timeout" : "transaction");
  return body;
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
