#pragma once

#include "script/running/Expression.h"

namespace tavrel::script {

/// How a statement ends: with the next one, with the innermost loop left by `exit repeat`, or with
/// the handler left by `return`.
enum class Flow : std::uint8_t { next, exitRepeat, returned };

/// A statement, ready to run. The functions that make them stand in SimpleStatements.h,
/// AppendStatement.h, BlockStatements.h and LoopStatements.h.
class Statement {
public:
  Statement() = default;
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  virtual ~Statement() = default;
  /// Throws ScriptError.
  [[nodiscard]] virtual Flow run(Frame& frame) const = 0;
  Span span; ///< in the source
};
using StatementPtr = std::unique_ptr<const Statement>;

/// Statements one after the other. An error without a span gets that of its statement.
class Block {
public:
  void add(StatementPtr statement) { statements_.push_back(std::move(statement)); }
  [[nodiscard]] Flow run(Frame& frame) const;

private:
  std::vector<StatementPtr> statements_;
};

} // namespace tavrel::script
