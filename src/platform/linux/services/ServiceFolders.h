#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// Where services are looked for, best first: tavrel/services in the user's data folder and in
/// those of the system, then those that came with the program.
[[nodiscard]] std::vector<std::string> serviceFolders(const std::string& resourceFolder);

/// The executable whose file name, without its extension, is the service's name; nothing when there
/// is none. Hidden files are no services.
[[nodiscard]] std::optional<std::string> findService(const std::vector<std::string>& folders,
                                                     const std::string& name);

} // namespace tavrel
