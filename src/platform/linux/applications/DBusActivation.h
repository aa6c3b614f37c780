#pragma once

#include <string>
#include <vector>

namespace tavrel {

/// What became of asking an application over the session bus.
enum class DBusAnswer { asked, unavailable };

/// Hands documents (as URLs; none: just come to the front) to the application of a desktop entry
/// id through org.freedesktop.Application, starting it where needed. `unavailable` when the bus
/// does not know it or it refused: its command line is to be tried then. An application that is
/// slow to answer was asked.
[[nodiscard]] DBusAnswer activateOverDBus(const std::string& entryId,
                                          const std::vector<std::string>& urls,
                                          const std::string& startupId);

} // namespace tavrel
