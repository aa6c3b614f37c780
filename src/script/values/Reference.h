#pragma once

#include "script/values/Runtime.h"
#include "script/values/ScriptObject.h"

namespace tavrel::script {

/// What `a reference to item 2 of l` gives: it remembers the property or element, and looks it up
/// anew each time its value is wanted.
class Reference : public Container {
public:
  static constexpr ValueKind valueKind = ValueKind::reference;
  explicit Reference(Heap& heap) : Container(valueKind, heap) {}
  /// The value now. Throws ScriptError (`noSuchObject`, `notDefined`) when there is none any more.
  [[nodiscard]] virtual Value contents(Runtime& runtime) const = 0;
  /// Sets the property or element. Throws ScriptError (`cannotSet`) for one that cannot be set.
  virtual void write(Runtime& runtime, Value value) = 0;
};

/// The value that a reference refers to, also when it refers to another reference; any other value
/// as it is. Throws ScriptError (`stackOverflow`) for references that go in a circle.
[[nodiscard]] Value dereferenced(Runtime& runtime, const Value& value);

/// To a variable or property of a script; `index` is that of the field.
[[nodiscard]] Value fieldReference(Runtime& runtime, ScriptObject& script, std::size_t index,
                                   const std::string* name);
/// To a property of a value; the container may be a reference itself.
[[nodiscard]] Value propertyReference(Runtime& runtime, const Value& container,
                                      const std::string* name);
/// To an element of a value, likewise. The key is an index or, for files, a path.
[[nodiscard]] Value elementReference(Runtime& runtime, const Value& container,
                                     const std::string& type, const Value& key);

} // namespace tavrel::script
