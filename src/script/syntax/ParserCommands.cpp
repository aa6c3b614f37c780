#include "script/syntax/Parser.h"

#include <algorithm>
#include <array>

namespace tavrel::script {
namespace {

// Calls `use` with each of the labels, which are separated by commas, until it answers true;
// answers whether it did.
template <typename Use> bool anyLabel(std::string_view labels, Use use) {
  while (!labels.empty()) {
    const std::size_t comma = std::min(labels.find(','), labels.size());
    if (use(labels.substr(0, comma)))
      return true;
    labels.remove_prefix(std::min(comma + 1, labels.size()));
  }
  return false;
}

} // namespace

const CommandTerm* Parser::commandAt() const {
  const CommandTerm* best = nullptr;
  std::size_t length = 0;
  for (const CommandTerm& term : commandTerms())
    if (knows(term.dictionary) && lengthOf(term.name) > length) {
      best = &term;
      length = lengthOf(term.name);
    }
  const bool isCall =
      best && length == 1 && (seesSymbol("(", 1) && labelledHandlers_.contains(best->name));
  const bool isOwner = best && seesSymbol("'s", length);
  return isCall || isOwner ? nullptr : best;
}

std::string_view Parser::labelAt(const CommandTerm& term) const {
  std::string_view best;
  (void)anyLabel(term.labels, [&](std::string_view label) {
    if (lengthOf(label) > 0 && label.size() > best.size())
      best = label;
    return false;
  });
  return best;
}

Node Parser::command(const CommandTerm& term) {
  const std::uint32_t start = peek().span.start;
  at_ += lengthOf(term.name);
  const auto has = [&](std::string_view name) {
    return anyLabel(term.labels, [&](std::string_view label) { return label == name; });
  };
  const StopWords stopWords{has("in") || stopWords_.in, has("as") || stopWords_.as,
                            has("of type") || stopWords_.ofType};
  Node result = node(NodeKind::command, std::string(term.name), {Node{}});
  if (term.direct == DirectParameter::allowed && startsExpression() && labelAt(term).empty())
    result.children[0] = expression(stopWords);
  if (term.direct == DirectParameter::allowed && term.labels.empty() && takeWord("of"))
    result.children[0] = expression(stopWords);
  commandLabels(term, result, stopWords);
  updateHeight(result);
  setSpan(result, start);
  return result;
}

void Parser::commandLabels(const CommandTerm& term, Node& command, StopWords stopWords) {
  while (labelledParameter(term, command, stopWords) || switches(term, command)) {
  }
}

bool Parser::labelledParameter(const CommandTerm& term, Node& command, StopWords stopWords) {
  const std::string label(labelAt(term));
  if (label.empty())
    return false;
  at_ += lengthOf(label);
  Node value = label == "as" ? typeExpression() : expression(stopWords);
  command.children.push_back(node(NodeKind::entry, label, {std::move(value)}));
  return true;
}

// Parameters that are true or false: `with administrator privileges`, `without hidden answer`.
bool Parser::switches(const CommandTerm& term, Node& command) {
  if (!seesWord("with") && !seesWord("without"))
    return false;
  const bool isOn = tokens_[at_++].text == "with";
  do {
    const std::string label(labelAt(term));
    if (label.empty())
      expected("parameter name");
    Node value = node(NodeKind::boolean);
    value.integer = isOn ? 1 : 0;
    at_ += lengthOf(label);
    command.children.push_back(node(NodeKind::entry, label, {std::move(value)}));
  } while (takeWord("and"));
  return true;
}

Node Parser::call(std::string name, std::uint32_t start) {
  const Nesting nesting(*this);
  Node result = node(NodeKind::call, std::move(name), {Node{}});
  expectSymbol("(");
  if (!takeSymbol(")")) {
    do {
      skipLines();
      result.children.push_back(expression());
      skipLines();
    } while (takeSymbol(","));
    expectSymbol(")");
  }
  updateHeight(result);
  setSpan(result, start);
  return result;
}

std::string Parser::prepositionAt() const {
  for (std::string_view two : {"apart from", "aside from", "instead of", "out of"})
    if (lengthOf(two) > 0)
      return std::string(two);
  const Token& token = peek();
  return token.kind == TokenKind::word && isPreposition(token.text) ? token.text : std::string();
}

// The same in a call of a handler: `with hidden and sorted`.
void Parser::handlerSwitches(Node& call) {
  const bool isOn = tokens_[at_++].text == "with";
  do {
    Node value = node(NodeKind::boolean);
    value.integer = isOn ? 1 : 0;
    std::string given = identifier();
    call.children.push_back(node(NodeKind::entry, std::move(given), {std::move(value)}));
  } while (takeWord("and"));
}

// `of` brings the direct parameter here, not a target: that is the one of the enclosing tell.
Node Parser::labelledCall(std::string name, std::uint32_t start) {
  const Nesting nesting(*this);
  Node result = node(NodeKind::labelledCall, std::move(name), {Node{}, Node{}});
  if (takeWord("of") || takeWord("in"))
    result.children[1] = expression();
  while (true) {
    const std::string label = prepositionAt();
    if (takeWord("given")) {
      do {
        std::string given = identifier();
        expectSymbol(":");
        Node value = expression();
        result.children.push_back(node(NodeKind::entry, std::move(given), {std::move(value)}));
      } while (takeSymbol(","));
    } else if (!label.empty() && takeWords(label)) {
      Node value = expression(StopWords{true, false, false});
      result.children.push_back(node(NodeKind::entry, label, {std::move(value)}));
    } else if (seesWord("with") || seesWord("without")) {
      handlerSwitches(result);
    } else {
      break;
    }
  }
  updateHeight(result);
  setSpan(result, start);
  return result;
}

} // namespace tavrel::script
