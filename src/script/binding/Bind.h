#pragma once

#include "script/running/Expression.h"
#include "script/syntax/SyntaxTree.h"

namespace tavrel::script {

/// Makes a script that can run of a syntax tree; its texts live on the heap. Throws ScriptError:
/// `syntax` for what the parser lets through and that means nothing, `corruptScript` for a tree
/// that no parser makes.
[[nodiscard]] std::shared_ptr<const Shape> bindScript(Heap& heap, const Node& script);

} // namespace tavrel::script
