#pragma once

#include <string>
#include <vector>

namespace tavrel {

/// Whether an application was asked over the session bus.
enum class DBusAnswer { asked, unavailable };

/// Opens documents (URLs; without any, just activates) in the application of a desktop entry id by
/// org.freedesktop.Application, which starts it when needed. `unavailable` when the bus does not
/// know it or it answered with an error: then its command line is to be tried. An application that
/// does not answer within the timeout counts as asked.
[[nodiscard]] DBusAnswer activateOverDBus(const std::string& entryId,
                                          const std::vector<std::string>& urls,
                                          const std::string& startupId);

} // namespace tavrel
