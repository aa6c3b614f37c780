#include "script/engine/DocumentedRows.h"

#include <fstream>

namespace tavrel::script {
namespace {

constexpr std::size_t columns = 3;

// In a cell `\n` is a line feed and `\|` a bar; every other backslash stands for itself.
std::vector<std::string> cellsOf(const std::string& line) {
  std::vector<std::string> cells;
  for (std::size_t at = 0; at < line.size(); ++at) {
    const char next = at + 1 < line.size() ? line[at + 1] : '\0';
    const bool isEscape = line[at] == '\\' && (next == 'n' || next == '|');
    if (line[at] == '|')
      cells.emplace_back();
    else if (!cells.empty())
      cells.back() += !isEscape ? line[at] : next == 'n' ? '\n' : '|';
    at += isEscape ? 1 : 0;
  }
  if (!cells.empty())
    cells.pop_back();
  return cells;
}

// A cell without the blanks around it.
std::string trimmed(const std::string& cell) {
  const std::size_t first = cell.find_first_not_of(' ');
  const std::size_t last = cell.find_last_not_of(' ');
  return first == std::string::npos ? std::string() : cell.substr(first, last - first + 1);
}

bool isCode(const std::string& cell) {
  return cell.size() > 2 && cell.front() == '`' && cell.back() == '`';
}

std::string code(const std::string& cell) {
  return cell.substr(1, cell.size() - 2);
}

} // namespace

std::vector<DocumentedRow> documentedRows() {
  std::ifstream file(TAVREL_SCRIPTING_TABLE);
  std::vector<DocumentedRow> rows;
  std::string section;
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    if (line.starts_with("## "))
      section = line.substr(3);
    std::vector<std::string> cells = line.starts_with("|") ? cellsOf(line) : decltype(cells){};
    for (std::string& each : cells)
      each = trimmed(each);
    if (cells.size() == columns && isCode(cells[1]) && isCode(cells[2]))
      rows.push_back({section, cells[0], code(cells[1]), code(cells[2]), number});
  }
  return rows;
}

} // namespace tavrel::script
