#include "script/syntax/Parser.h"

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

} // namespace

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

// Throws unless a class stands here.
std::string Parser::elementType() {
  bool plural = false;
  std::size_t length = 0;
  const TypeTerm* type = typeAt(plural, length);
  if (!type)
    expected("class name");
  at_ += length;
  return std::string(type->name);
}

// The end of an ordinal number like `2nd`, right behind the digits.
bool Parser::seesOrdinalEnding() const {
  const Span number = peek().span;
  if (peek(1).span.start != number.start + number.length)
    return false;
  return seesWord("st", 1) || seesWord("nd", 1) || seesWord("rd", 1) || seesWord("th", 1);
}

Node Parser::ordinal(std::int64_t number) {
  std::string type = elementType();
  Node index = node(NodeKind::integer);
  index.integer = number;
  return node(NodeKind::element, std::move(type), {{}, std::move(index)});
}

// A bound as in `text from word 1 to end`; both bounds are elements of the same container.
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

// Elements that begin with the word that picks them: `every`, `middle`, `some`, `first` and so on.
std::optional<Node> Parser::pickedElements() {
  if (takeWord("every"))
    return node(NodeKind::everyElement, elementType(), {Node{}});
  if (takeWord("middle"))
    return node(NodeKind::middleElement, elementType(), {Node{}});
  if (takeWord("some"))
    return node(NodeKind::someElement, elementType(), {Node{}});
  for (const auto& [word, number] : ordinals)
    if (seesWord(word) && peek(1).kind == TokenKind::word) {
      ++at_;
      return ordinal(number);
    }
  return std::nullopt;
}

} // namespace tavrel::script
