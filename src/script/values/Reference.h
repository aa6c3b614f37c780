#pragma once

#include "script/values/Runtime.h"
#include "script/values/ScriptObject.h"

namespace tavrel::script {

/// A place that a script points to, as `a reference to item 2 of l`: it is looked up anew each
/// time its value is asked for.
class Reference : public Container {
public:
  static constexpr ValueKind valueKind = ValueKind::reference;
  explicit Reference(Heap& heap) : Container(valueKind, heap) {}
  /// What the place holds. Throws (`noSuchObject`) when there is no such place any more.
  [[nodiscard]] virtual Value contents(Runtime& runtime) const = 0;
  /// Throws (`cannotSet`) where nothing can be put.
  virtual void write(Runtime& runtime, Value value) = 0;
};

/// The value behind references, however many point to each other; any other value as it is.
[[nodiscard]] Value dereferenced(Runtime& runtime, const Value& value);

/// A variable or property of a script. `index` is one of the script's fields.
[[nodiscard]] Value fieldReference(Runtime& runtime, ScriptObject& script, std::size_t index,
                                   const std::string* name);
/// An entry, a script's property or the part of a date; the container may be a reference itself.
[[nodiscard]] Value propertyReference(Runtime& runtime, const Value& container,
                                      const std::string* name);
[[nodiscard]] Value elementReference(Runtime& runtime, const Value& container,
                                     const std::string& type, const Value& key);

} // namespace tavrel::script
