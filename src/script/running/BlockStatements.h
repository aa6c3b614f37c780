#pragma once

#include "script/running/Statement.h"

#include <optional>

namespace tavrel::script {

// Statements that hold others, but for loops.

/// A condition and what runs when it holds.
struct ConditionalBlock {
  ExpressionPtr condition;
  Block body;
};
[[nodiscard]] StatementPtr ifStatement(std::vector<ConditionalBlock> branches, Block otherwise);

struct TryClauses {
  Block body;
  Block errorBlock;                         ///< behind `on error`
  ExpressionPtr messageVariable;            ///< gets the error's message; null where there is none
  ExpressionPtr numberVariable;             ///< gets its number; null where there is none
  std::optional<std::int64_t> caughtNumber; ///< the one that is caught; nothing for all of them
};
[[nodiscard]] StatementPtr tryStatement(TryClauses clauses);

[[nodiscard]] StatementPtr tellStatement(ExpressionPtr target, Block body);

/// `considering` or `ignoring`; `differences` are those between texts, as "case".
enum class Consideration : std::uint8_t { considering, ignoring };
[[nodiscard]] StatementPtr consideringStatement(Consideration consideration,
                                                std::vector<std::string> differences, Block body);

} // namespace tavrel::script
