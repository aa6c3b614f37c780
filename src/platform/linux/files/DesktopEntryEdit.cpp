#include "platform/linux/files/DesktopEntryEdit.h"

namespace tavrel {

namespace {

constexpr std::string_view editedGroup = "[Desktop Entry]";

struct EntryLine {
  std::size_t start = 0;
  std::size_t end = 0; ///< behind its line feed
};

std::string_view contentOf(std::string_view text, EntryLine line) {
  std::string_view content = text.substr(line.start, line.end - line.start);
  while (!content.empty() && (content.back() == '\n' || content.back() == '\r'))
    content.remove_suffix(1);
  return content;
}

EntryLine lineAt(std::string_view text, std::size_t start) {
  const std::size_t feed = text.find('\n', start);
  return {start, feed == std::string_view::npos ? text.size() : feed + 1};
}

// Where the main group's lines begin; the end of the text when there is no such group.
std::size_t groupStart(std::string_view text) {
  EntryLine line;
  while (line.end < text.size()) {
    line = lineAt(text, line.end);
    if (contentOf(text, line).starts_with(editedGroup))
      return line.end;
  }
  return text.size();
}

bool sets(std::string_view line, std::string_view key) {
  if (!line.starts_with(key))
    return false;
  const std::size_t next = line.find_first_not_of(" \t", key.size());
  return next != std::string_view::npos && line[next] == '=';
}

std::string withGroup(std::string text) {
  if (groupStart(text) != text.size() || text.find(editedGroup) != std::string::npos)
    return text;
  if (!text.empty() && text.back() != '\n')
    text.append("\n");
  return text.append(editedGroup).append("\n");
}

} // namespace

std::string withEntryKey(std::string text, std::string_view key,
                         const std::optional<std::string>& value) {
  text = withGroup(std::move(text));
  std::size_t insertAt = groupStart(text); // behind the last line of the group that is not blank
  for (EntryLine line = lineAt(text, insertAt); line.start < text.size();
       line = lineAt(text, line.end)) {
    const std::string_view content = contentOf(text, line);
    if (content.starts_with('['))
      break;
    if (sets(content, key)) {
      text.erase(line.start, line.end - line.start);
      line.end = line.start;
    } else if (!content.empty()) {
      insertAt = line.end;
    }
  }
  if (!value)
    return text;
  const std::string before = insertAt > 0 && text[insertAt - 1] != '\n' ? "\n" : "";
  return text.insert(insertAt, before + std::string(key) + "=" + *value + "\n");
}

std::string escapedEntryValue(std::string_view text) {
  std::string value;
  for (const char each : text) {
    if (each == '\n')
      value.append("\\n");
    else if (each == '\r')
      value.append("\\r");
    else if (each == ' ' && value.empty())
      value.append("\\s");
    else
      value.append(each == '\\' ? 2 : 1, each);
  }
  return value;
}

std::string quotedExecArgument(std::string_view path) {
  std::string quoted = "\"";
  for (const char each : path) {
    if (each == '"' || each == '`' || each == '$' || each == '\\')
      quoted.push_back('\\');
    quoted.append(each == '%' ? 2 : 1, each);
  }
  return escapedEntryValue(quoted.append("\""));
}

} // namespace tavrel
