#pragma once

#include "platform/linux/plists/PropertyListCodec.h"

#include <string>

namespace tavrel {

/// How a preference file was found.
enum class PreferenceFileState {
  missing,
  readable,
  malformed,  ///< there, but no dictionary of a property list
  unreadable, ///< there, but it may not be read or is no file
};

struct PreferenceFile {
  PreferenceFileState state = PreferenceFileState::missing;
  PropertyList::Dictionary values;
  PropertyListForm form = PropertyListForm::xml;
  std::string problem; ///< one clause; empty for a missing and a readable file
};

/// Reads a file of at most 256 MiB, links followed.
[[nodiscard]] PreferenceFile readPreferenceFile(const std::string& path);

/// Reads one file over and over, as above: bytes that are the same as the last time are not decoded
/// again, and their values are the very same objects.
class PreferenceReader {
public:
  [[nodiscard]] const PreferenceFile& read(const std::string& path);

private:
  Bytes bytes_;
  PreferenceFile file_;
};

/// Moves a malformed file to the first free PATH.malformed-N; its new path, or nothing when it
/// could not be moved.
[[nodiscard]] std::optional<std::string> moveAside(const std::string& path);

} // namespace tavrel
