#pragma once

#include "base/PropertyList.h"
#include "script/syntax/SyntaxTree.h"

#include <optional>

namespace tavrel::script {

/// The compiled form of a script: its syntax tree as bytes. Each node is its kind, its place in
/// the source, its number, its text and its children, one after the other.
[[nodiscard]] Bytes encodeTree(const Node& tree);

/// Nothing for bytes that encodeTree did not make: cut short, of unknown kinds, nested deeper than
/// any source can be, with text that is no UTF-8.
[[nodiscard]] std::optional<Node> decodeTree(const Bytes& bytes);

} // namespace tavrel::script
