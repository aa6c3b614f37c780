#pragma once

#include <cstdint>
#include <string>

namespace tavrel {

class AuthorizationRef;

/// Asks, removes the plug-in and the preference pane, takes the application out of the login items
/// and offers to log out.
void uninstallTavrel();

/// Removes all four pieces with an administrator's rights; false when those were not granted.
bool uninstallFromSystem();

/// Removes a piece with the rights granted; what the tool prints goes to standard output.
void authorizedRemove(AuthorizationRef& reference, const std::string& path);

void uninstallLoginItems();

/// Sends an event of the core class to the process that runs the session; the platform's status, 0
/// on success.
std::int32_t SendAppleEventToSystemProcess(std::uint32_t eventIdentifier);

} // namespace tavrel
