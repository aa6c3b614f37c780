#pragma once

#include "base/PropertyList.h"

#include <optional>
#include <string>

namespace tavrel {

/// The two forms of a property-list file.
enum class PropertyListForm { xml, binary };

/// The value that a file's bytes encode, or the reason why there is none.
struct DecodedPropertyList {
  std::optional<PropertyList> value;
  PropertyListForm form = PropertyListForm::xml;
  std::string problem; ///< one clause, as "nests too deep"; empty when there is a value
};

/// Containers may stand inside one another this deep; what nests deeper is malformed.
inline constexpr std::size_t deepestPropertyList = 25'000;

/// Reads either form. The bytes are checked first, for libplist 2.2 lets errors pass: it takes
/// <integer>abc for 0 and a key without a value for an empty dictionary, and cuts broken UTF-8.
/// Loops of references are refused, too.
[[nodiscard]] DecodedPropertyList decodePropertyList(const Bytes& bytes);

/// Writes a form. Text is made well-formed first: broken UTF-8 and characters that XML cannot hold
/// become U+FFFD. Nothing when the value nests deeper than `deepestPropertyList`.
[[nodiscard]] std::optional<Bytes> encodePropertyList(const PropertyList& value,
                                                      PropertyListForm form);

} // namespace tavrel
