#pragma once

#include "base/PropertyList.h"

namespace tavrel {

class ApplicationRegistry;
class CachedRecentUses;

/// What was used lately, newest first, as the domain "com.apple.recentitems" has it:
/// "RecentApplications", "RecentDocuments" and "RecentServers", each with a list "CustomListItems"
/// of at most ten dictionaries of "Name" and "Bookmark" (of a server "Alias", its URL). Documents
/// and applications come from "recently-used.xbel", those marked as private left out; a document
/// that is gone stays, with a bookmark that leads nowhere. Servers are the network places.
[[nodiscard]] PropertyList::Dictionary recentItems(ApplicationRegistry& registry,
                                                   CachedRecentUses& recentUses);

} // namespace tavrel
