#pragma once

#include "platform/linux/plists/PropertyListCodec.h"

#include <string>

namespace tavrel {

/// The content of a script file.
struct ScriptFile {
  enum class Kind {
    missing,
    unreadable, ///< may not be read, is no file, or is larger than 64 MiB
    program,    ///< an interpreter line and the executable bit: a process of its own
    container,  ///< a compiled script
    source      ///< any other text
  };
  Kind kind = Kind::missing;
  PropertyList container = PropertyList::Dictionary();
  PropertyListForm form = PropertyListForm::binary;
  std::string source;
  bool isWritable = false;
};

[[nodiscard]] ScriptFile readScriptFile(const std::string& path);

/// Replaces the file whole or not at all; its mode and extended attributes stay. False when it
/// could not be written: then it is as it was.
[[nodiscard]] bool writeScriptFile(const std::string& path, const PropertyList& container,
                                   PropertyListForm form);

} // namespace tavrel
