#pragma once

#include "script/running/BlockStatements.h"
#include "script/running/ValueExpressions.h"
#include "script/syntax/SyntaxTree.h"

#include <map>
#include <set>

namespace tavrel::script {

using Names = std::set<const std::string*>;

/// The names that the statements assign to, those of inner handlers and scripts left out.
[[nodiscard]] Names assignedNames(const Node& block);

/// What a name means by itself, as `pi`, `linefeed` or `January`; null for all others.
[[nodiscard]] CodePtr predefined(Heap& heap, const std::string& name);

/// Binds the names of one script: its fields, and while a handler is bound that handler's
/// variables.
class Binder {
public:
  Binder(Heap& heap, Binder* outer) : heap_(heap), outer_(outer) {}

  [[nodiscard]] std::shared_ptr<Shape> script(const Node& block, const std::string& name);

private:
  // Binder.cpp
  static void refuseStatements(const Node& block);
  void declareFields(const Node& block);
  std::size_t field(const std::string* name);
  void addHandler(const Node& node);
  void declarePattern(const Node& pattern);
  void addParameter(Handler& handler, const Node& node);
  void addRunHandler(const Node& block);
  [[nodiscard]] CodePtr place(const Node& variable);
  [[nodiscard]] bool hasLocal(const std::string* name);
  [[nodiscard]] bool captures(const std::string* name);
  [[nodiscard]] CodePtr variable(const std::string* name);
  [[nodiscard]] CodePtr fieldNamed(const std::string* name, bool alsoVariables);
  [[nodiscard]] CodePtr global(const std::string* name);
  [[nodiscard]] std::size_t local(const std::string* name);
  void scopeOf(const Node& block);
  void noteGlobals(const Node& node);

  // BinderStatements.cpp
  [[nodiscard]] Sequence sequence(const Node& block);
  [[nodiscard]] ActionPtr statement(const Node& node);
  [[nodiscard]] ActionPtr plainStatement(const Node& node);
  [[nodiscard]] ActionPtr assignment(const Node& node, Keeping keeping);
  [[nodiscard]] ActionPtr branch(const Node& node);
  [[nodiscard]] ActionPtr each(const Node& node);
  [[nodiscard]] ActionPtr attempt(const Node& node);
  [[nodiscard]] ActionPtr consider(const Node& node);
  [[nodiscard]] ActionPtr innerScript(const Node& node);

  // BinderExpressions.cpp
  [[nodiscard]] CodePtr expression(const Node& node);
  [[nodiscard]] CodePtr plainExpression(const Node& node);
  [[nodiscard]] CodePtr optional(const Node& node);
  [[nodiscard]] CodePtr comparison(const Node& node);
  [[nodiscard]] CodePtr element(const Node& node);
  [[nodiscard]] CodePtr range(const Node& node);
  [[nodiscard]] CodePtr call(const Node& node);
  [[nodiscard]] std::vector<CodePtr> expressions(const Node& node, std::size_t from);
  [[nodiscard]] std::vector<LabelledCode> entries(const Node& node, std::size_t from);
  [[nodiscard]] std::vector<LabelledCode> labelled(const Node& call);
  [[nodiscard]] CodePtr assignable(const Node& node);

  /// The child, or the error of a tree that no parser makes.
  static const Node& child(const Node& node, std::size_t index);
  [[noreturn]] static void corrupt();

  Heap& heap_;
  Binder* outer_;
  std::shared_ptr<Shape> shape_;
  std::map<const std::string*, std::size_t> fields_; ///< of the shape, by name
  std::set<const std::string*> variables_;           ///< fields that only the run handler sees
  Names globals_;
  std::map<const std::string*, std::size_t> locals_;
  Names assigned_;
  bool bindsValues_ = false; ///< in the initial value of a property
  bool runsFree_ = false;    ///< in a run handler without a name: its variables are fields
};

} // namespace tavrel::script
