#pragma once

#include "script/binding/AssignedNames.h"
#include "script/running/BlockStatements.h"
#include "script/running/ScriptDefinition.h"
#include "script/running/SimpleStatements.h"
#include "script/syntax/SyntaxTree.h"

#include <map>

namespace tavrel::script {

/// Makes a script that can run of a syntax tree; its texts live on the heap. Throws ScriptError:
/// `syntax` for what the parser lets through but has no meaning, `corruptScript` for a tree that no
/// parser makes.
[[nodiscard]] std::shared_ptr<const ScriptDefinition> bindScript(Heap& heap, const Node& script);

/// Binds one script: turns each node of its tree into an expression or statement, and each name
/// into a variable of the handler, a field of the script, or one of a script around it. While a
/// handler is bound the binder knows that handler's variables.
class Binder {
public:
  /// `outer` binds the script that this one stands in; null for the outermost.
  Binder(Heap& heap, Binder* outer) : heap_(heap), outer_(outer) {}

  [[nodiscard]] std::shared_ptr<ScriptDefinition> bindScriptBlock(const Node& block,
                                                                  const std::string& name);

private:
  // Binder.cpp: properties and handlers
  void declareFields(const Node& block);
  void bindInitialValue(const Node& property);
  void addHandler(const Node& node);
  void declarePattern(const Node& pattern);
  void addParameter(Handler& handler, const Node& node);
  void addRunHandler(const Node& block);
  static void refuseStatements(const Node& block);
  /// The child, or the error of a tree that no parser makes.
  static const Node& child(const Node& node, std::size_t index);
  [[noreturn]] static void corrupt();

  // BinderNames.cpp: what a name stands for
  void beginScope(const Node& block);
  void collectGlobals(const Node& node);
  std::size_t fieldIndex(const std::string* name);
  std::size_t localSlot(const std::string* name);
  [[nodiscard]] ExpressionPtr findVariable(const std::string* name);
  [[nodiscard]] ExpressionPtr findField(const std::string* name, bool alsoRunVariables);
  [[nodiscard]] ExpressionPtr globalVariable(const std::string* name);
  [[nodiscard]] bool hasLocal(const std::string* name);
  [[nodiscard]] bool capture(const std::string* name);
  [[nodiscard]] ExpressionPtr bindAssignedVariable(const Node& variable);

  // BinderStatements.cpp
  [[nodiscard]] Block bindBlock(const Node& block);
  [[nodiscard]] StatementPtr bindStatement(const Node& node);
  [[nodiscard]] StatementPtr bindStatementKind(const Node& node);
  [[nodiscard]] StatementPtr bindAssignment(const Node& node, Assignment assignment);
  [[nodiscard]] StatementPtr bindIf(const Node& node);
  [[nodiscard]] StatementPtr bindRepeatIn(const Node& node);
  [[nodiscard]] StatementPtr bindTry(const Node& node);
  [[nodiscard]] StatementPtr bindConsidering(const Node& node);
  [[nodiscard]] StatementPtr bindInnerScript(const Node& node);

  // BinderExpressions.cpp
  [[nodiscard]] ExpressionPtr bindExpression(const Node& node);
  [[nodiscard]] ExpressionPtr bindExpressionKind(const Node& node);
  /// Null for a node of kind `none`.
  [[nodiscard]] ExpressionPtr bindOptional(const Node& node);
  [[nodiscard]] ExpressionPtr bindName(const std::string& name);
  [[nodiscard]] ExpressionPtr bindComparison(const Node& node);
  [[nodiscard]] ExpressionPtr bindElement(const Node& node);
  [[nodiscard]] ExpressionPtr bindRange(const Node& node);
  [[nodiscard]] ExpressionPtr bindCall(const Node& node);
  /// The children from that index on.
  [[nodiscard]] std::vector<ExpressionPtr> bindExpressions(const Node& node, std::size_t from);
  [[nodiscard]] std::vector<LabelledExpression> bindEntries(const Node& node, std::size_t from);
  [[nodiscard]] std::vector<LabelledExpression> bindArguments(const Node& call);
  [[nodiscard]] ExpressionPtr bindTarget(const Node& node);

  Heap& heap_;
  Binder* outer_;
  std::shared_ptr<ScriptDefinition> definition_;
  std::map<const std::string*, std::size_t> fields_; ///< of the definition, by name
  Names runVariables_; ///< fields that are variables of the implicit run handler: others see them
                       ///< only when they declare them as global
  bool bindsInitialValue_ = false; ///< now, of a property
  bool inImplicitRun_ = false; ///< now, in the statements outside of all handlers: their variables
                               ///< are fields

  // Of the handler that is bound now:
  Names globals_;                                    ///< that it declares as global
  Names assigned_;                                   ///< that it assigns to
  std::map<const std::string*, std::size_t> locals_; ///< slots by name
};

} // namespace tavrel::script
