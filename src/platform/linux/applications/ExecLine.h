#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// A program and its arguments.
using CommandLine = std::vector<std::string>;

/// The values of the field codes in a command line.
struct ExecContext {
  std::vector<std::string> urls; ///< of the documents
  std::string name;              ///< of the application, in the user's language
  std::string icon;              ///< as the entry names it; empty: none
  std::string entryPath;
};

/// Splits the value of an Exec key into arguments, field codes still in place, by the quoting
/// rules of the Desktop Entry format (1.5): double quotes, and a backslash before `"`, a grave
/// accent, `$` and `\` inside them. Nothing for an empty line and for a quote that is never closed.
[[nodiscard]] std::optional<CommandLine> splitExec(std::string_view exec);

/// The command lines to start: one for all documents where the line takes a list (%F, %U), one for
/// each document where it takes a single one (%f, %u, or no code at all: then the document comes
/// last), one when there are no documents. Local files become paths for %f and %F. Deprecated and
/// unknown codes are removed. The program itself may be empty after that.
[[nodiscard]] std::vector<CommandLine> expandExec(const CommandLine& arguments,
                                                  const ExecContext& context);

} // namespace tavrel
