#pragma once

#include "platform/Menu.h"

#include <cstddef>
#include <string>

namespace tavrel {

/// The domain in which the desktop keeps what was used lately.
inline constexpr const char* recentItemsDomain = "com.apple.recentitems";

/// Appends the sections of recent applications, documents and servers.
void addRecentItems(Menu& menu);

/// Appends one section, named by its key in the domain: a header, its items one level in and, but
/// after servers, a separator; nothing for a section without items. `index` is where its first
/// entry goes; returns the index after its last.
std::size_t attachRecentItems(Menu& menu, const std::string& key, std::size_t index);

} // namespace tavrel
