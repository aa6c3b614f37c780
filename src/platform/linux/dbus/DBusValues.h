#pragma once

#include "base/PropertyList.h"

#include <QVariant>

#include <optional>

namespace tavrel {

/// A D-Bus value as far as a property list can hold it.
struct DBusPropertyList {
  std::optional<PropertyList> value; ///< nothing: it can hold none of it
  bool isWhole = true;               ///< nothing inside had to be left out
};

/// Booleans, integers, doubles, strings, byte arrays, arrays and dictionaries with string keys.
/// Left out is what no property list can hold (integers of 2^63 and more, object paths,
/// structures), and what is nested more than 32 deep (the bus allows no more).
[[nodiscard]] DBusPropertyList propertyListFromDBus(const QVariant& value);

/// The other way; dates travel as doubles, seconds since 2001. Nothing for values nested more than
/// 20 deep, which the bus refuses.
[[nodiscard]] std::optional<QVariant> dbusFromPropertyList(const PropertyList& value);

} // namespace tavrel
