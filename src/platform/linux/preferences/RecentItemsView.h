#pragma once

#include "base/PropertyList.h"

namespace tavrel {

class ApplicationRegistry;
class CachedRecentUses;

/// The recent items, newest first, in the form of the domain "com.apple.recentitems":
/// "RecentApplications", "RecentDocuments" and "RecentServers", each with a list "CustomListItems"
/// of at most ten dictionaries of "Name" and "Bookmark" (of a server "Alias", its URL). Documents
/// and applications come from "recently-used.xbel", except those marked as private; a document that
/// is gone is listed, with a bookmark that leads nowhere. Servers are the network places.
[[nodiscard]] PropertyList::Dictionary recentItems(ApplicationRegistry& registry,
                                                   CachedRecentUses& recentUses);

} // namespace tavrel
