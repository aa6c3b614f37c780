#pragma once

#include "base/PropertyList.h"

#include <string>

namespace tavrel {

/// Why the bytes are no binary property list, as one clause; empty when they are one. Follows every
/// reference once: loops, references that lead outside and trees that unfold to half a million
/// values more than the file has objects are refused.
[[nodiscard]] std::string problemOfBinaryPropertyList(const Bytes& bytes);

} // namespace tavrel
