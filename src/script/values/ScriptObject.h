#pragma once

#include "script/values/ValueObjects.h"

#include <memory>

namespace tavrel::script {

/// The handlers and properties of a script (running/ScriptDefinition.h). Here only the names
/// matter, so that values know nothing of how scripts run.
struct ScriptDefinition;

/// The names that all objects of one definition share.
struct ScriptOutline {
  std::string name;                       ///< empty for the outermost script
  std::vector<const std::string*> fields; ///< properties first, then variables and inner scripts
};

/// A script that has values: one for each field (property, global variable or inner script) of
/// its definition, and what it inherits from.
class ScriptObject final : public Container {
public:
  static constexpr ValueKind valueKind = ValueKind::script;
  /// `outline` belongs to the definition. The fields are undefined at first.
  ScriptObject(Heap& heap, std::shared_ptr<const ScriptDefinition> definition,
               const ScriptOutline& outline, Ref<ScriptObject> enclosing);
  /// An object of the same definition, inside the same script and with the same parent; its fields
  /// are undefined.
  ScriptObject(Heap& heap, const ScriptObject& model);
  void empty() override;

  [[nodiscard]] const ScriptDefinition& definition() const { return *definition_; }
  [[nodiscard]] const std::string& name() const { return outline_.name; }
  /// The script that this one stands in; null for the outermost.
  [[nodiscard]] ScriptObject* outer() const { return outer_.get(); }
  /// The field of that name here or in what it inherits from; null without one.
  [[nodiscard]] Value* find(const std::string* field);

  std::vector<Value> fields; ///< as many as the outline names, in its order
  Value parent;              ///< the script that it inherits from; at first the enclosing one

private:
  std::shared_ptr<const ScriptDefinition> definition_;
  const ScriptOutline& outline_;
  Ref<ScriptObject> outer_;
};

} // namespace tavrel::script
