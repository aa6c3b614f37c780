#pragma once

#include "base/PropertyList.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tavrel {

/// The values that a command came with, by key.
using ScriptArguments = PropertyList::Dictionary;

/// Values of the argument "targetLineEndings", four characters each; every other value keeps line
/// feeds.
namespace scriptLineEndings {
inline constexpr std::uint32_t carriageReturn = 0x43522020;         ///< 'CR  '
inline constexpr std::uint32_t carriageReturnLineFeed = 0x43524C46; ///< 'CRLF'
} // namespace scriptLineEndings

/// The application as scripts and other programs see it: four properties and three commands.
class ScriptableApplication {
public:
  virtual ~ScriptableApplication() = default;

  [[nodiscard]] virtual std::optional<std::string> hostAppName() const = 0;
  [[nodiscard]] virtual std::string currentLocalization() const = 0;
  [[nodiscard]] virtual std::optional<std::string> longVersion() = 0;
  [[nodiscard]] virtual std::optional<PropertyList> contextObject() const = 0;

  /// Puts the captured selection on the clipboard.
  virtual void handleCopyToClipboardScriptCommand() = 0;
  /// A text ("sourceString") in an encoding ("targetEncoding"), escaped for a URL: a string, or
  /// data when "rawData" is true; the empty string for an encoding that nobody knows.
  [[nodiscard]] virtual PropertyList
  handleConvertScriptCommand(const ScriptArguments& arguments) = 0;
  /// Asks the user, then removes the installed pieces. Returns when that is over.
  virtual void handleUninstallScriptCommand() = 0;
};

/// Lends the application's properties and commands to scripts and other programs.
class Scripting {
public:
  virtual ~Scripting() = default;

  /// Who answers from now on, on the main thread and one request at a time. Not owned; null:
  /// nobody, and requests fail.
  virtual void setApplication(ScriptableApplication* application) = 0;
};

} // namespace tavrel
