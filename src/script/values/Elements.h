#pragma once

#include "script/values/Runtime.h"

#include <optional>

namespace tavrel::script {

/// A bound of a range: an index, from 1 or from the end below 0, of elements of a class.
struct Bound {
  std::string type;
  std::int64_t index = 1;
};

/// The elements of a value by class, as `word`. Each throws ScriptError: `noSuchObject` where a
/// value has no such elements, `badIndex` where the index is beyond them.
[[nodiscard]] Value elementAt(Runtime& runtime, const Value& whole, const std::string& type,
                              std::int64_t index);
/// A text for `text`, else a list.
[[nodiscard]] Value elementsBetween(Runtime& runtime, const Value& whole, const std::string& type,
                                    const Bound& first, const Bound& last);
[[nodiscard]] Value everyElement(Runtime& runtime, const Value& whole, const std::string& type);
[[nodiscard]] std::int64_t countElements(Runtime& runtime, const Value& whole,
                                         const std::string& type);

/// The place from 0 that an index means among `count`; nothing when it is beyond them.
[[nodiscard]] std::optional<std::size_t> placeOf(std::int64_t index, std::size_t count);

} // namespace tavrel::script
