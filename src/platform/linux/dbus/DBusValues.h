#pragma once

#include "base/PropertyList.h"

#include <QVariant>

#include <optional>

namespace tavrel {

/// A D-Bus value as a property list: booleans, integers, doubles, strings, byte arrays, arrays and
/// dictionaries with string keys. Nothing for a value that no property list can hold (integers of
/// 2^63 and more, object paths, structures), and for values nested more than 32 deep (the bus
/// allows no more).
[[nodiscard]] std::optional<PropertyList> propertyListFromDBus(const QVariant& value);

/// The other way; dates travel as doubles, seconds since 2001. Nothing for values nested more than
/// 20 deep, which the bus refuses.
[[nodiscard]] std::optional<QVariant> dbusFromPropertyList(const PropertyList& value);

} // namespace tavrel
