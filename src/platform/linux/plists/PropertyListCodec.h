#pragma once

#include "base/PropertyList.h"

#include <optional>
#include <string>

namespace tavrel {

/// The two forms of a property-list file.
enum class PropertyListForm { xml, binary };

/// What a file's bytes turned out to be: a value, or the reason why they are none.
struct DecodedPropertyList {
  std::optional<PropertyList> value;
  PropertyListForm form = PropertyListForm::xml;
  std::string problem; ///< one clause, as "nests too deep"; empty when there is a value
};

/// Containers may stand inside one another this deep; what nests deeper is malformed.
inline constexpr std::size_t deepestPropertyList = 25'000;

/// Reads either form. Bytes are checked before the library sees them, which is more lenient than
/// the format: numbers that are none, keys without values, broken UTF-8, loops of references.
[[nodiscard]] DecodedPropertyList decodePropertyList(const Bytes& bytes);

/// Writes a form. Text is made well-formed first: broken UTF-8 and characters that XML cannot hold
/// become U+FFFD. Nothing when the value nests deeper than `deepestPropertyList`.
[[nodiscard]] std::optional<Bytes> encodePropertyList(const PropertyList& value,
                                                      PropertyListForm form);

} // namespace tavrel
