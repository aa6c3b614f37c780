#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tavrel::script {

struct HostValue;

/// A file by its POSIX path.
struct HostFile {
  std::string path;
};

/// A constant, as `yes`, or the name of a class, as `folder`; in lower case but for months and
/// weekdays.
struct HostName {
  std::string name;
};

/// Seconds since 2001-01-01 00:00 of the local calendar.
struct HostDate {
  double seconds = 0;
};

/// One step of a path: a property or elements of the object that the steps before it name.
struct ObjectStep {
  enum class Kind { property, element, every, range };
  Kind kind = Kind::property;
  std::string name;            ///< of the property, or the class of the element, in lower case
  std::vector<HostValue> keys; ///< element: one, its index (from 1) or name; range: the two bounds
};

/// An object of an application, by the steps to it from the application inward: `name of window 1`
/// is the element `window`, then the property `name`. Without steps it is the application itself.
struct ObjectPath {
  std::string application;
  std::vector<ObjectStep> steps;
};

using HostList = std::vector<HostValue>;
using HostRecord = std::map<std::string, HostValue>;

/// A value that passes between a script and the desktop, as plain data. The first alternative is
/// `missing value`.
struct HostValue {
  std::variant<std::monostate, bool, std::int64_t, double, std::string, HostFile, HostName,
               HostDate, ObjectPath, HostList, HostRecord>
      value;
};

/// Something that a script asks the desktop, or one application of it, to do.
struct HostEvent {
  std::string application; ///< that is asked; empty for the desktop, as with `display dialog`
  std::string command;     ///< in lower case; "get" and "set" read and write an object
  std::optional<HostValue> direct; ///< the direct parameter; nothing when there is none
  HostRecord parameters;           ///< by label; that of "set" is its value, under "to"
};

/// Why an event was not carried out.
struct HostError {
  int number = 0; ///< one of `errors` in ScriptError.h, or the application's own
  std::string message;
};

/// What an event gives, or its error. An event that has no answer gives `missing value`.
using HostAnswer = std::variant<HostValue, HostError>;

/// The desktop as scripts see it. None of this throws.
class Host {
public:
  Host() = default;
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;
  virtual ~Host() = default;

  /// Does what is asked, and returns when it is done. A command, an application or a term that the
  /// desktop does not know is an error, never a silent success.
  [[nodiscard]] virtual HostAnswer perform(const HostEvent& event) = 0;

  /// Seconds since 2001-01-01 00:00 of the local calendar.
  [[nodiscard]] virtual double now() = 0;

  /// Asked every few thousand steps of a running script: true ends it with error -128.
  [[nodiscard]] virtual bool shouldStop() = 0;

  /// Called when the outermost run is over: what scripts left open is to be closed.
  virtual void runEnded() {}
};

} // namespace tavrel::script
