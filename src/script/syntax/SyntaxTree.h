#pragma once

#include "script/ScriptError.h"

#include <string>
#include <vector>

namespace tavrel::script {

/// The kinds of nodes. The comment of each tells what the text of the node is, if it has one, then,
/// behind a semicolon, its children in order: `x?` may be a node of kind `none`, and `x*` is any
/// number of them. Compiled scripts hold these values: a new kind put among the others would give
/// those made before another meaning.
enum class NodeKind : std::uint8_t {
  none,
  // Values
  missing,
  boolean,  ///< integer 0 or 1
  integer,  ///< integer
  real,     ///< real
  text,     ///< the text
  constant, ///< name of an enumerated constant, as `yes` or `command down`
  typeName, ///< name of a class, as `list`
  list,     ///< element*
  record,   ///< entry*
  entry,    ///< label; value
  date,     ///< text expression
  // Names
  variable, ///< name in lower case
  me,
  it,
  result,
  currentApplication,
  // Operators
  negate,     ///< operand
  logicalNot, ///< operand
  binary,     ///< operator; left, right
  cast,       ///< value, type
  reference,  ///< `a reference to`: value
  // Properties and elements; a container of kind `none` is the target of the enclosing tell
  property,       ///< name; container?
  element,        ///< class; container?, index or name
  elementRange,   ///< class; container?, first, last
  everyElement,   ///< class; container?
  middleElement,  ///< class; container?
  someElement,    ///< class; container?
  filter,         ///< class; container?, condition
  insertionPoint, ///< beginning or end; container?
  // Calls
  call,         ///< handler name; target?, argument*
  labelledCall, ///< handler name; target?, direct?, entry*
  command,      ///< command name; direct?, entry*
  continueCall, ///< `continue`: call
  // Statements
  block,       ///< statement*
  expression,  ///< value
  set,         ///< target, value
  copy,        ///< target, value
  ifStatement, ///< (condition, block)*, block? when the number of children is odd
  repeatForever,
  repeatTimes, ///< count, block
  repeatWhile, ///< condition, block
  repeatUntil, ///< condition, block
  repeatWith,  ///< variable; from, to, step?, block
  repeatIn,    ///< variable; list, block
  exitRepeat,
  returnStatement,     ///< `return`: value?
  tryStatement,        ///< `try`: block, block?, message variable?, number (a variable or literal)?
  errorStatement,      ///< `error`: message?, number?
  tell,                ///< target, block
  considering,         ///< constant*, block
  ignoring,            ///< constant*, block
  log,                 ///< value
  handler,             ///< name; parameter*, block
  parameter,           ///< name, empty for a pattern; label? (its text), list that is the pattern?
  script,              ///< name; block
  propertyDeclaration, ///< name; value
  global,              ///< variable*
  local,               ///< variable*
  last = local
};

/// One node of a syntax tree. Nodes move and are never copied: if each operand were copied into the
/// node above it, parsing would take time that grows with the square of the height.
struct Node {
  Node() = default;
  Node(Node&&) noexcept = default;
  Node& operator=(Node&&) noexcept = default;
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;
  ~Node() = default;

  NodeKind kind = NodeKind::none;
  std::uint16_t height = 0; ///< 0 without children, else one more than the highest child
  Span span;
  std::int64_t integer = 0;
  double real = 0;
  std::string text;
  std::vector<Node> children;
};

/// How deep expressions and statements of a source may nest: parsing uses the stack for each level.
constexpr int deepestNesting = 200;

/// How high the tree of an expression may grow, long chains of operators included: code that walks
/// a tree uses the stack for each level.
constexpr int highestExpression = 1000;

} // namespace tavrel::script
