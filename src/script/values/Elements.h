#pragma once

#include "script/values/Runtime.h"

#include <optional>

namespace tavrel::script {

/// A bound of a range: the index of an element of a class. Indices count from 1, negative ones
/// from the end.
struct Bound {
  std::string type;
  std::int64_t index = 1;
};

// The elements of a value by class, as `word` of a text or `item` of a list. Each throws
// ScriptError (`noSuchObject`) where the value has no such elements or not as many.

/// The element of an index, or, for files, of a path.
[[nodiscard]] Value elementOf(Runtime& runtime, const Value& whole, const std::string& type,
                              const Value& key);
[[nodiscard]] Value elementAt(Runtime& runtime, const Value& whole, const std::string& type,
                              std::int64_t index);

/// Those from one bound to the other, whichever comes first: of the class `text` one text, else a
/// list.
[[nodiscard]] Value elementsBetween(Runtime& runtime, const Value& whole, const std::string& type,
                                    const Bound& first, const Bound& last);
/// A list of them; of the class `text` the text itself.
[[nodiscard]] Value everyElement(Runtime& runtime, const Value& whole, const std::string& type);

[[nodiscard]] std::int64_t countElements(Runtime& runtime, const Value& whole,
                                         const std::string& type);

/// Replaces an item of a list. Throws ScriptError (`cannotSet`) for everything else.
void setElement(Runtime& runtime, const Value& whole, const std::string& type, const Value& key,
                Value value);

/// The position from 0 that an index means among `count` elements; nothing when it is beyond them.
[[nodiscard]] std::optional<std::size_t> positionOf(std::int64_t index, std::size_t count);

} // namespace tavrel::script
