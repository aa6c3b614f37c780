#pragma once

#include "platform/Scripts.h"

namespace tavrel {

/// A compiled script in a file, for one run. Main thread only.
struct TVAppleScript {
  /// Opens the component if need be; the file is not read yet.
  explicit TVAppleScript(std::string path);
  TVAppleScript(const TVAppleScript&) = delete;
  TVAppleScript& operator=(const TVAppleScript&) = delete;

  /// Loads the script, unless one is loaded, runs it and disposes of it. After success what the run
  /// changed is stored back. Returns the code of the load or, once it is loaded, of the run.
  OSAError executeAndReturnError();

  /// Stores the script back when it ran and may be stored; 0 when there was nothing to store.
  OSAError save();

  std::string filePath;
  bool _usingResourceFork = false; ///< always: there are none
  bool _dirty = false;             ///< ran, and was not stored yet
  OSAID _scriptID = 0;             ///< 0 while nothing is loaded
  bool storable = false;           ///< set as the script is loaded
};

} // namespace tavrel
