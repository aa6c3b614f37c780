#pragma once

#include "script/syntax/SyntaxTree.h"

#include <set>

namespace tavrel::script {

/// Names as symbols.
using Names = std::set<const std::string*>;

/// The names that the statements of a block assign to, loop variables and inner scripts included;
/// what handlers and inner scripts do inside is left out.
[[nodiscard]] Names assignedNames(const Node& block);

} // namespace tavrel::script
