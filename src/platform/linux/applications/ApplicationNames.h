#pragma once

#include "platform/Applications.h"

#include <optional>
#include <string>
#include <vector>

namespace tavrel {

class ApplicationRegistry;
struct InstalledApplication;

/// By which the core knows that this very program is in front, whatever its file is called and
/// wherever it was installed.
inline constexpr const char* ownApplicationName = "Tavrel";

/// An application's id without its ending, "org.example.Editor".
[[nodiscard]] std::string stemOf(const InstalledApplication& application);

/// The file name of the program that an entry starts; empty when its line names none.
[[nodiscard]] std::string programOf(const InstalledApplication& application);

/// The name that people see, in their language. The id without its ending where there is none, and
/// in place of a name that the core knows as a file manager's or as ours.
[[nodiscard]] std::string displayNameOf(const InstalledApplication& application);

/// What else an application goes by: its name, translated and not, the id and the file of its
/// entry, each also without the ending, and the files of its programs. `executable` is the one that
/// runs, or empty; an interpreter is nobody's program.
[[nodiscard]] std::vector<std::string> otherNamesOf(const InstalledApplication& application,
                                                    const std::string& executable);

/// The same for a program without an entry: its file name, also without an ending.
[[nodiscard]] std::vector<std::string> otherNamesOf(const std::string& executable);

/// As Applications::nameMeant. A text means `front` by its path, its name and its other names; so
/// does a path that ends in one of them, and, unless that is another application in full, what is
/// one of them without its ending.
[[nodiscard]] std::optional<std::string> nameMeantBy(const std::string& text,
                                                     const RunningApplication& front,
                                                     const ApplicationRegistry& registry);

} // namespace tavrel
