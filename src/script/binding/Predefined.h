#pragma once

#include "script/values/ValueObjects.h"

namespace tavrel::script {

/// What a name means that no script declares, as `pi`, `linefeed` or `January`; undefined for all
/// others. Texts live on the heap.
[[nodiscard]] Value predefinedValue(Heap& heap, const std::string& name);

} // namespace tavrel::script
