#include "script/syntax/Parser.h"

namespace tavrel::script {

Node Parser::ifStatement() {
  Node result = node(NodeKind::ifStatement);
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

Node Parser::exitRepeat() {
  if (loopDepth_ == 0)
    throw ScriptError{errors::strayExit, "Exit statement was not in a repeat loop.", peek().span};
  takeWord("repeat");
  return node(NodeKind::exitRepeat);
}

Node Parser::loopBody() {
  ++loopDepth_;
  Node body = block({"end"});
  --loopDepth_;
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

Node Parser::tryStatement() {
  Node result = node(NodeKind::tryStatement, {}, {block({"on error", "end"}), {}, {}, {}});
  if (takeWords("on error")) {
    errorVariables(result);
    result.children[1] = block({"end"});
  }
  endBlock(seesWord("error") ? "error" : "try");
  return result;
}

void Parser::errorVariables(Node& tryStatement) {
  takeWord("the");
  if (seesIdentifier() && !seesWord("number") && !seesWord("partial"))
    tryStatement.children[2] = node(NodeKind::variable, identifier());
  while (peek().kind != TokenKind::lineEnd) {
    const bool isNumber = takeWord("number");
    if (!isNumber && !takeWord("from") && !takeWord("to") && !takeWords("partial result"))
      expected("end of line");
    takeWord("the");
    if (isNumber)
      tryStatement.children[3] = errorNumber();
    else
      (void)identifier();
  }
}

// A variable to put the number in, or the one number that is caught.
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

// Of what `considering` and `ignoring` take. An unknown one is an error: to ignore it in silence
// would make comparisons come out otherwise than the script says.
std::string Parser::textDifference() {
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
    result.children.push_back(node(NodeKind::constant, textDifference()));
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

// `with timeout` and `with transaction` are read but have no effect: the host decides how long it
// waits, and there are no transactions. Only the block inside counts.
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

} // namespace tavrel::script
