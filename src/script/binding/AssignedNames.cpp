#include "script/binding/AssignedNames.h"

#include "script/values/Value.h"

namespace tavrel::script {
namespace {

void addTarget(const Node& target, Names& names) {
  if (target.kind == NodeKind::variable)
    names.insert(symbol(target.text));
  if (target.kind == NodeKind::list)
    for (const Node& each : target.children)
      addTarget(each, names);
}

void collect(const Node& node, Names& names) {
  switch (node.kind) {
  case NodeKind::handler:
    return;
  case NodeKind::script:
    names.insert(symbol(node.text));
    return;
  case NodeKind::set:
  case NodeKind::copy:
    if (!node.children.empty())
      addTarget(node.children[0], names);
    break;
  case NodeKind::repeatWith:
  case NodeKind::repeatIn:
    names.insert(symbol(node.text));
    break;
  case NodeKind::tryStatement:
    for (std::size_t i = 2; i < node.children.size(); ++i)
      addTarget(node.children[i], names);
    break;
  default:
    break;
  }
  if (node.kind >= NodeKind::block)
    for (const Node& each : node.children)
      collect(each, names);
}

} // namespace

Names assignedNames(const Node& block) {
  Names names;
  for (const Node& each : block.children)
    collect(each, names);
  return names;
}

} // namespace tavrel::script
