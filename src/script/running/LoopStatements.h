#pragma once

#include "script/running/Statement.h"

namespace tavrel::script {

[[nodiscard]] StatementPtr repeatForeverStatement(Block body);
/// `repeat count times`
[[nodiscard]] StatementPtr repeatTimesStatement(ExpressionPtr count, Block body);

/// `repeat while condition` or `repeat until condition`: what ends the loop, looked at before each
/// round.
enum class LoopEnd : std::uint8_t { conditionFails, conditionHolds };
[[nodiscard]] StatementPtr conditionalRepeatStatement(LoopEnd end, ExpressionPtr condition,
                                                      Block body);

/// `repeat with variable from first to last by step`
struct CountingLoop {
  ExpressionPtr variable;
  ExpressionPtr from;
  ExpressionPtr to;
  ExpressionPtr step; ///< null for 1
};
[[nodiscard]] StatementPtr repeatWithStatement(CountingLoop loop, Block body);

/// `repeat with variable in list`; the variable holds each item, or a reference to it where the
/// body sets its contents.
enum class LoopItem : std::uint8_t { value, reference };
[[nodiscard]] StatementPtr repeatInStatement(ExpressionPtr variable, ExpressionPtr list,
                                             LoopItem item, Block body);

} // namespace tavrel::script
