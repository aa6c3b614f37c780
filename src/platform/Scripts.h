#pragma once

#include "base/PropertyList.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// An open instance of a scripting component; 0 for none.
using ComponentInstance = std::uint32_t;

/// What a component keeps: a script or a value; 0 for none.
using OSAID = std::uint32_t;

/// How a call ended: 0 for success, else a negative code.
using OSAError = std::int32_t;

/// The component for compiled scripts, 'osa ' and 'scpt'.
inline constexpr std::uint32_t kOSAComponentType = 0x6F736120;
inline constexpr std::uint32_t kAppleScriptSubtype = 0x73637074;

namespace osaError {
inline constexpr OSAError none = 0;
inline constexpr OSAError fileNotFound = -43;
inline constexpr OSAError componentNotFound = -1750; ///< no such instance is open
inline constexpr OSAError invalidID = -1751;
inline constexpr OSAError scriptError = -1753; ///< the script ran and failed
} // namespace osaError

/// A source of the application's own. Each "%@" of the form, between quotation marks, stands for
/// the next of the texts: paths and names, which may hold anything.
struct OwnSource {
  std::string form;
  std::vector<std::string> texts;
};

struct LoadedScript {
  OSAError code = osaError::none;
  OSAID script = 0;      ///< 0 unless the code is 0; the caller disposes of it
  bool storable = false; ///< whether the script may be stored back to its file
};

struct ExecutedScript {
  OSAError code = osaError::none;
  OSAID result = 0; ///< may be 0, and is unless the code is 0; the caller disposes of it
};

/// How the run of a source ended.
struct SourceRun {
  /// A dictionary, with the number under "NSAppleScriptErrorNumber" and the words under
  /// "NSAppleScriptErrorMessage"; nothing when the source ran to its end.
  std::optional<PropertyList> error;
};

/// The four characters of a list.
inline constexpr std::uint32_t typeAEList = 0x6C697374;

/// What a run gave: the four characters of its type and, of a list, the raw data of each item
/// (text: UTF-16 in the machine's byte order, without a mark).
struct AppleEventDescriptor {
  std::uint32_t descriptorType = 0;
  std::vector<Bytes> items;
};

/// A script read from a file, to be run for its result.
class NSAppleScript {
public:
  virtual ~NSAppleScript() = default;
  /// Nothing when the script failed.
  virtual std::optional<AppleEventDescriptor> execute() = 0;
};

/// Compiled scripts in files, run by a component, and scripts from source texts.
/// Every call is synchronous: running returns when the script has ended. Meanwhile the desktop may
/// call the core, on the same thread, and the core may run a further script: runs nest.
class Scripts {
public:
  virtual ~Scripts() = default;

  /// A new instance of the component of that type and subtype; 0 when there is none.
  [[nodiscard]] virtual ComponentInstance openDefaultComponent(std::uint32_t type,
                                                               std::uint32_t subtype) = 0;

  /// Reads a compiled script. It runs on its own: what it changes is in the file only once it is
  /// stored there.
  [[nodiscard]] virtual LoadedScript load(ComponentInstance component, const std::string& path) = 0;

  /// Runs a loaded script to its end; its properties keep what the run made of them.
  [[nodiscard]] virtual ExecutedScript execute(ComponentInstance component, OSAID script) = 0;

  /// Forgets a script or a value. Disposing of 0 succeeds and does nothing.
  virtual OSAError dispose(ComponentInstance component, OSAID id) = 0;

  /// Writes a loaded script with the state it has now over the file at a path; `fileNotFound` when
  /// none is there, for what was taken away during the run stays away. A file whose script the
  /// user has edited meanwhile is left alone. On failure the file is as it was.
  virtual OSAError store(ComponentInstance component, OSAID script, const std::string& path) = 0;

  /// A compiled script of our own resources, to be run for its result; null when it cannot be read.
  /// Its text is fixed, with nothing put into it, so it may ask for whatever a user's script may.
  [[nodiscard]] virtual std::unique_ptr<NSAppleScript>
  initWithContentsOfFile(const std::string& path) = 0;

  /// Compiles and runs a user's source text; a text that does not compile is an error of the run.
  /// Nothing when no script object could be made of it: then nothing ran.
  virtual std::optional<SourceRun> runSource(const std::string& source) = 0;

  /// The same for one of the application's own. It does exactly what its form does, whatever its
  /// texts are: a file's name runs nothing.
  virtual std::optional<SourceRun> runOwnSource(const OwnSource& source) = 0;
};

} // namespace tavrel
