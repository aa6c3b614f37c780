#pragma once

#include "base/PropertyList.h"
#include "script/syntax/SyntaxTree.h"

#include <optional>

namespace tavrel::script {

/// The compiled form of a script: its syntax tree as bytes. Each node is its kind (a byte), its
/// span, its number when it has one, its text and its children with their counts, one after the
/// other. The order of NodeKind is part of this form.
[[nodiscard]] Bytes encodeTree(const Node& tree);

/// The tree back; nothing for bytes that encodeTree never makes: cut short, with unknown kinds,
/// nested deeper than any source can be, or with text that is not UTF-8.
[[nodiscard]] std::optional<Node> decodeTree(const Bytes& bytes);

} // namespace tavrel::script
