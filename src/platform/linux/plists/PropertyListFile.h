#pragma once

#include "platform/linux/plists/PropertyListCodec.h"

#include <string>

namespace tavrel {

/// What was found at a path.
enum class PropertyListFileState {
  missing,
  readable,
  malformed,  ///< there, but no dictionary of a property list
  unreadable, ///< there, but it may not be read or is no file
};

/// A file whose property list is a dictionary: preferences, the texts of a language.
struct PropertyListFile {
  PropertyListFileState state = PropertyListFileState::missing;
  PropertyList::Dictionary values;
  PropertyListForm form = PropertyListForm::xml;
  std::string problem; ///< one clause; empty for a missing and a readable file
};

/// Reads a file of at most 256 MiB, links followed.
[[nodiscard]] PropertyListFile readPropertyListFile(const std::string& path);

/// Reads one file again and again, as above. Bytes that have not changed since the last time are
/// not decoded again, and their values are the same objects.
class PropertyListReader {
public:
  [[nodiscard]] const PropertyListFile& read(const std::string& path);

private:
  Bytes bytes_;
  PropertyListFile file_;
};

/// Moves a malformed file to the first free PATH.malformed-N; its new path, or nothing when it
/// could not be moved.
[[nodiscard]] std::optional<std::string> moveAside(const std::string& path);

} // namespace tavrel
