#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// A program and its arguments.
using CommandLine = std::vector<std::string>;

/// What the field codes of a command line stand for.
struct ExecContext {
  std::vector<std::string> urls; ///< of the documents
  std::string name;              ///< of the application, in the person's language
  std::string icon;              ///< as the entry names it; empty: none
  std::string entryPath;
};

/// Takes the value of an Exec key apart into arguments, field codes still in place, by the quoting
/// rules of the Desktop Entry format (1.5): double quotes, and a backslash before `"`, a grave
/// accent, `$` and `\` inside them. Nothing for an empty line and for a quote that is never closed.
[[nodiscard]] std::optional<CommandLine> splitExec(std::string_view exec);

/// The command lines to start: one for all documents where the line takes a list (%F, %U), one for
/// each document where it takes a single one (%f, %u, or no code at all: then the document comes
/// last), one when there are no documents. Local files become paths for %f and %F. Deprecated and
/// unknown codes stand for nothing. The program itself may be empty after that.
[[nodiscard]] std::vector<CommandLine> expandExec(const CommandLine& arguments,
                                                  const ExecContext& context);

} // namespace tavrel
