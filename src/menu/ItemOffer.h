#pragma once

#include "base/PropertyList.h"

#include <string>
#include <vector>

namespace tavrel {

struct HostContext;

/// Whether the record is offered in the application that is in front. One that names no
/// applications is offered in all; each that it names, by name or path, counts as
/// `applicationName` has it.
[[nodiscard]] bool isOfferedIn(const HostContext& host, const PropertyList& record);

/// Whether the record is offered for what is selected now. One that names no kinds of selection is
/// always offered; one that names only "empty" or unknown kinds never is.
[[nodiscard]] bool isOfferedForSelection(const PropertyList& record);

} // namespace tavrel
