#pragma once

#include <string>

namespace tavrel {

/// What debug lines are about. On Linux an area is a logging category, `tavrel.menu`.
enum class LogArea { menu };

/// The system log. Few lines go there: what a user could mend. Debug lines, which tell why the
/// program does what it does, are off unless the desktop is told otherwise.
class SystemLog {
public:
  virtual ~SystemLog() = default;
  /// One entry, on standard error where the desktop has no log of its own.
  virtual void write(const std::string& line) = 0;

  /// Whether debug lines of an area are wanted: to be asked before one is put together. Never by a
  /// log that has none.
  [[nodiscard]] virtual bool isDebugOn(LogArea /*area*/) { return false; }
  /// One entry of an area, dropped unless those are wanted.
  virtual void debug(LogArea /*area*/, const std::string& /*line*/) {}
};

} // namespace tavrel
