#pragma once

#include "script/values/ValueObjects.h"

#include <memory>

namespace tavrel::script {

struct Shape;

/// A script, or a script object inside one: its fields (properties and global variables) and what
/// it inherits from.
class ScriptObject final : public Container {
public:
  static constexpr ValueKind valueKind = ValueKind::script;
  ScriptObject(Heap& heap, std::shared_ptr<const Shape> form, Ref<ScriptObject> enclosing);
  void empty() override;

  [[nodiscard]] const Shape& shape() const { return *shape_; }
  [[nodiscard]] const std::shared_ptr<const Shape>& sharedShape() const { return shape_; }
  [[nodiscard]] const std::string& name() const;
  /// The script that this one stands in; null for the outermost.
  [[nodiscard]] ScriptObject* outer() const { return outer_.get(); }
  /// The field of that name here or in what it inherits from; null without one.
  [[nodiscard]] Value* find(const std::string* field);

  std::vector<Value> fields;
  Value parent;

private:
  std::shared_ptr<const Shape> shape_;
  Ref<ScriptObject> outer_;
};

} // namespace tavrel::script
