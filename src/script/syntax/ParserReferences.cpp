#include "script/syntax/Parser.h"

namespace tavrel::script {
namespace {

// Whether a node of the kind takes the container that follows `of`.
bool isMember(NodeKind kind) {
  return (kind >= NodeKind::property && kind <= NodeKind::insertionPoint) ||
         kind == NodeKind::call || kind == NodeKind::labelledCall;
}

} // namespace

Node Parser::reference() {
  const Nesting nesting(*this);
  const std::uint32_t start = peek().span.start;
  Node result = withOwners(primary());
  const bool stopWords = stopWords_.ofType && lengthOf("of type") > 0;
  if (!stopWords && (takeWord("of") || (!stopWords_.in && takeWord("in")))) {
    Node container = reference();
    if (result.kind == NodeKind::variable)
      result.kind = NodeKind::property;
    if (result.kind == NodeKind::typeName)
      result.kind = NodeKind::property;
    if (!isMember(result.kind))
      expected("end of line");
    attach(result, std::move(container));
  }
  result = filtered(std::move(result));
  setSpan(result, start);
  return result;
}

// `x's y's z` is `z of y of x`.
Node Parser::withOwners(Node primary) {
  while (takeSymbol("'s"))
    primary = filtered(ownedBy(std::move(primary)));
  return primary;
}

Node Parser::ownedBy(Node owner) {
  Node member = primary();
  if (member.kind == NodeKind::variable || member.kind == NodeKind::typeName)
    member.kind = NodeKind::property;
  if (!isMember(member.kind))
    expected("property");
  attach(member, std::move(owner));
  return member;
}

// Gives the container to the innermost member that has none yet.
void Parser::attach(Node& reference, Node container) const {
  if (reference.children.empty())
    reference.children.emplace_back();
  Node& slot = reference.children.front();
  if (slot.kind == NodeKind::none)
    slot = std::move(container);
  else if (isMember(slot.kind))
    attach(slot, std::move(container));
  else
    expected("end of line");
  updateHeight(reference);
}

// In `every file of home whose name is "a"` the condition is about the files, although `home`
// stands between.
Node Parser::filtered(Node reference) {
  const bool single = reference.kind == NodeKind::element;
  if (!single && reference.kind != NodeKind::everyElement)
    return reference;
  if (!takeWord("whose") && !takeWord("where") && !takeWord("that"))
    return reference;
  ++conditionDepth_;
  Node condition = expression();
  --conditionDepth_;
  Node all = node(NodeKind::filter, reference.text,
                  {std::move(reference.children[0]), std::move(condition)});
  if (!single)
    return all;
  return node(NodeKind::element, "item", {std::move(all), std::move(reference.children[1])});
}

} // namespace tavrel::script
