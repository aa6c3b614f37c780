#pragma once

#include "base/PropertyList.h"

#include <string>
#include <vector>

namespace tavrel {

/// Whether the record is offered in the application of that name. One that names no applications is
/// offered in all; of those it names, by name or path, only the last component without its ending
/// counts.
[[nodiscard]] bool isOfferedIn(const std::string& applicationName, const PropertyList& record);

/// Whether the record is offered for what is selected now. One that names no kinds of selection is
/// always offered; one that names only "empty" or unknown kinds never is.
[[nodiscard]] bool isOfferedForSelection(const PropertyList& record);

} // namespace tavrel
