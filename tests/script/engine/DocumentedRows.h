#pragma once

#include <string>
#include <vector>

namespace tavrel::script {

/// One row of docs/scripting.md.
struct DocumentedRow {
  std::string section;
  std::string feature;
  std::string source; ///< with its line feeds
  std::string result; ///< as a script would write it, or "error N"
  int line = 0;       ///< in the document, from 1
};

/// All rows of the document that have an example, in their order.
[[nodiscard]] std::vector<DocumentedRow> documentedRows();

} // namespace tavrel::script
