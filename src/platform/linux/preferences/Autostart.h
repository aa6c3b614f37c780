#pragma once

#include "base/PropertyList.h"
#include "platform/linux/system/XdgFolders.h"

#include <string>
#include <vector>

namespace tavrel {

/// What is opened at log-in, by the Desktop Application Autostart format (0.5): entries in the
/// folder autostart of each configuration folder, of which the person's own stand for those of the
/// system under the same name.
///
/// An item is a dictionary with "Path", the application's entry, program or document, and "Hide".
/// The entries themselves have no order: foreign ones come first, by their names, then those added
/// here in the order they were added.
[[nodiscard]] PropertyList::Array loginItems(const XdgFolders& folders);

/// Makes these the items: adds what is missing, takes out what is not listed, and touches no other
/// entry. An entry that somebody else wrote is not removed but marked as deleted, and one of the
/// system is marked so in the person's own folder. False when something could not be written, which
/// is told on standard error.
bool setLoginItems(const XdgFolders& folders, const PropertyList::Array& items);

} // namespace tavrel
