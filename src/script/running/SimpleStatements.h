#pragma once

#include "script/running/Statement.h"

namespace tavrel::script {

// Statements that hold no others. A null expression stands for what the source leaves out.

/// Whether an expression asks for the result of the statement before. If not, that result is let go
/// first: a text that only a variable holds can be appended to without a copy.
enum class PriorResult : std::uint8_t { unused, used };
[[nodiscard]] StatementPtr expressionStatement(ExpressionPtr value, PriorResult prior);

/// `set` shares lists and records with whoever holds them, `copy` makes new ones.
enum class Assignment : std::uint8_t { shareValue, copyValue };
[[nodiscard]] StatementPtr setStatement(ExpressionPtr target, ExpressionPtr value,
                                        Assignment assignment);

/// `exit repeat`
[[nodiscard]] StatementPtr exitStatement();
[[nodiscard]] StatementPtr returnStatement(ExpressionPtr value);
/// `error message number number`
[[nodiscard]] StatementPtr errorStatement(ExpressionPtr message, ExpressionPtr number);
[[nodiscard]] StatementPtr logStatement(ExpressionPtr value);

} // namespace tavrel::script
