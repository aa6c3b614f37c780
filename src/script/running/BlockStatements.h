#pragma once

#include "script/running/Expression.h"

#include <optional>

namespace tavrel::script {

// The makers of all statements that can run.

// Statements.cpp
/// Whether an expression asks for the result of the statement before. If not it is let go first:
/// a text that only a variable holds can be appended to without a copy.
enum class PriorResult : std::uint8_t { unused, used };
[[nodiscard]] ActionPtr expressionAction(CodePtr value, PriorResult before);
enum class Keeping : std::uint8_t { shares, copies };
[[nodiscard]] ActionPtr setAction(CodePtr place, CodePtr value, Keeping keeping);
struct Branch {
  CodePtr condition;
  Sequence body;
};
[[nodiscard]] ActionPtr branchAction(std::vector<Branch> branches, Sequence otherwise);
[[nodiscard]] ActionPtr exitAction();
[[nodiscard]] ActionPtr returnAction(CodePtr value);
struct Attempt {
  Sequence body;
  Sequence rescue;
  CodePtr message; ///< the variables that hear of the error; null where there is none
  CodePtr number;
  std::optional<std::int64_t> only; ///< the one number that is caught; nothing for all of them
};
[[nodiscard]] ActionPtr attemptAction(Attempt attempt);
[[nodiscard]] ActionPtr failAction(CodePtr message, CodePtr number);
[[nodiscard]] ActionPtr tellAction(CodePtr target, Sequence body);
enum class Attention : std::uint8_t { considering, ignoring };
[[nodiscard]] ActionPtr considerAction(Attention attention, std::vector<std::string> what,
                                       Sequence body);
[[nodiscard]] ActionPtr logAction(CodePtr value);

// Append.cpp
/// `set x to x & a & b`, without copying x where nobody shares it. The pieces must leave x alone:
/// they are looked at before it is.
[[nodiscard]] ActionPtr appendAction(CodePtr place, std::vector<CodePtr> pieces);

// Loops.cpp
[[nodiscard]] ActionPtr foreverAction(Sequence body);
[[nodiscard]] ActionPtr timesAction(CodePtr count, Sequence body);
enum class Until : std::uint8_t { conditionFails, conditionHolds };
[[nodiscard]] ActionPtr conditionAction(Until until, CodePtr condition, Sequence body);
struct Counting {
  CodePtr place;
  CodePtr from;
  CodePtr to;
  CodePtr step; ///< null for 1
};
[[nodiscard]] ActionPtr countingAction(Counting counting, Sequence body);
enum class Item : std::uint8_t { value, reference };
[[nodiscard]] ActionPtr eachAction(CodePtr place, CodePtr list, Item item, Sequence body);

} // namespace tavrel::script
