#pragma once

#include "base/PropertyList.h"
#include "platform/linux/system/XdgFolders.h"

#include <string>
#include <vector>

namespace tavrel {

/// What is started at log-in, by the Desktop Application Autostart specification (0.5): desktop
/// entries in the folder autostart of each configuration folder. An entry of the user replaces one
/// of the system that has the same file name.
///
/// An item is a dictionary with "Path", the application's entry, program or document, and "Hide".
/// The specification knows no order: entries of others come first, by their names, then those that
/// were added here, in the order of adding.
[[nodiscard]] PropertyList::Array loginItems(const XdgFolders& xdg);

/// Makes these the items: adds what is missing, takes out what is not listed, and touches no other
/// entry. An entry that we did not write is not removed but marked as deleted, one of the system by
/// an entry in the user's folder. False when something could not be written; standard error has the
/// reason.
bool setLoginItems(const XdgFolders& xdg, const PropertyList::Array& items);

} // namespace tavrel
