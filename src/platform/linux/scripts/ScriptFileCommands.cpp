#include "base/Utf8.h"
#include "platform/linux/scripts/ScriptAdditions.h"
#include "platform/linux/scripts/ScriptArguments.h"
#include "platform/linux/system/BoundedFile.h"
#include "platform/linux/system/FileDescriptor.h"
#include "script/ScriptError.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace tavrel {

using namespace script;

namespace fs = std::filesystem;

namespace {

constexpr std::size_t largestText = std::size_t{64} << 20U;

std::string pathOf(const HostEvent& event) {
  const std::vector<std::string> paths =
      event.direct ? scriptPaths(*event.direct) : std::vector<std::string>();
  return paths.empty() ? std::string() : paths.front();
}

HostAnswer missingFile(const std::string& path) {
  return HostError{errors::fileNotFound, "File " + path + " wasn’t found."};
}

HostAnswer notPermitted(const std::string& path) {
  return HostError{-54, "File " + path + " can’t be written."};
}

// From a byte counted from 1; below 0 from the end.
std::size_t startOf(const HostEvent& event, const char* label, std::size_t size) {
  const HostValue* value = parameterOf(event, label);
  const double from = value ? scriptNumber(*value).value_or(1) : 1;
  const double start = from < 0 ? static_cast<double>(size) + from : from - 1;
  return static_cast<std::size_t>(std::clamp(start, 0.0, static_cast<double>(size)));
}

// A malformed path counts as a missing file.
bool isReachable(const std::string& path) {
  std::error_code ignored;
  return fs::exists(path, ignored);
}

// Where reading or writing goes on in a file that `open for access` opened; null for other files.
std::size_t* positionOf(ScriptDesktop& desktop, const std::string& path) {
  const auto found = desktop.openFiles.find(path);
  return found != desktop.openFiles.end() ? &found->second : nullptr;
}

std::string bounded(const std::string& text, double bytes) {
  return text.substr(0, static_cast<std::size_t>(std::clamp(bytes, 0.0, 1e18)));
}

double countOf(const HostEvent& event) {
  const HostValue* count = parameterOf(event, "for");
  return count ? scriptNumber(*count).value_or(0) : 1e18;
}

// `to` is the last byte that is read.
double countFrom(const HostEvent& event, std::size_t start) {
  const HostValue* last = parameterOf(event, "to");
  if (!last || scriptText(*last) == "eof")
    return countOf(event);
  return std::min(countOf(event), scriptNumber(*last).value_or(0) - static_cast<double>(start));
}

// The text up to the delimiter of `until`, which belongs to it, or of `before`, which does not;
// `used` counts the bytes with the delimiter.
std::string untilDelimiter(const HostEvent& event, const std::string& text, std::size_t& used) {
  const std::string until = textParameter(event, "until");
  const std::string delimiter = until + textParameter(event, "before");
  const std::size_t end = delimiter.empty() ? std::string::npos : text.find(delimiter);
  used = end == std::string::npos ? text.size() : end + delimiter.size();
  return text.substr(0, until.empty() ? end : used);
}

// With `using delimiters` the list of texts between these; a delimiter at the end is no separator.
HostValue splitAtDelimiters(const HostEvent& event, const std::string& text) {
  std::vector<std::string> delimiters;
  for (const char* label : {"using delimiter", "using delimiters"})
    if (const HostValue* given = parameterOf(event, label))
      delimiters = scriptTexts(*given);
  std::erase(delimiters, std::string());
  if (delimiters.empty())
    return {text};
  HostList texts;
  std::size_t start = 0;
  for (std::size_t at = 0; at < text.size();) {
    const auto found = std::find_if(delimiters.begin(), delimiters.end(), [&](const auto& each) {
      return std::string_view(text).substr(at).starts_with(each);
    });
    if (found != delimiters.end())
      texts.push_back({text.substr(start, at - start)});
    at += found != delimiters.end() ? found->size() : 1;
    start = found != delimiters.end() ? at : start;
  }
  if (start < text.size())
    texts.push_back({text.substr(start)});
  return {std::move(texts)};
}

bool readsAsText(const HostEvent& event) {
  const std::string type = textParameter(event, "as");
  return type.empty() || type == "text" || type == "string" || type == "unicode text" ||
         type == "utf8";
}

HostAnswer read(ScriptDesktop& desktop, const HostEvent& event) {
  const std::string path = pathOf(event);
  const auto contents = readFile(path, largestText);
  if (!contents)
    return missingFile(path);
  if (!readsAsText(event))
    return HostError{errors::cannotCoerce, "A file can only be read as text."};
  std::size_t* position = positionOf(desktop, path);
  const std::size_t start = parameterOf(event, "from") || !position
                                ? startOf(event, "from", contents->size())
                                : std::min(*position, contents->size());
  if (start == contents->size() && (!contents->empty() || position))
    return HostError{errors::endOfFile, "End of file."};
  std::size_t used = 0;
  const std::string text =
      untilDelimiter(event, bounded(contents->substr(start), countFrom(event, start)), used);
  if (!isUtf8(text))
    return HostError{errors::cannotCoerce, "What was read of " + path + " is no UTF-8 text."};
  if (position)
    *position = start + used;
  return splitAtDelimiters(event, text);
}

// Writes at the given byte, else at the position of an open file, else at the start. Bytes behind
// the written text stay, as the language wants it.
HostAnswer write(ScriptDesktop& desktop, const HostEvent& event) {
  const HostValue* to = parameterOf(event, "to");
  const std::vector<std::string> paths = to ? scriptPaths(*to) : std::vector<std::string>();
  if (paths.empty())
    return HostError{errors::missingParameter, "There is no file to write to."};
  const std::string& path = paths.front();
  std::error_code error;
  const auto size = isReachable(path) ? fs::file_size(path, error) : 0;
  std::size_t* position = positionOf(desktop, path);
  const HostValue* at = parameterOf(event, "starting at");
  const std::size_t start = at && scriptText(*at) == "eof" ? size
                            : at || !position              ? startOf(event, "starting at", size)
                                                           : std::min<std::size_t>(*position, size);
  if (!isReachable(path))
    std::ofstream(path).flush();
  const std::string text = bounded(directText(event), countOf(event));
  std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(static_cast<std::streamoff>(start));
  file << text << std::flush;
  if (position)
    *position = start + text.size();
  return file ? HostAnswer(HostValue{}) : notPermitted(path);
}

HostAnswer getEof(ScriptDesktop&, const HostEvent& event) {
  std::error_code error;
  const auto size = fs::file_size(pathOf(event), error);
  return error ? missingFile(pathOf(event)) : HostValue{static_cast<std::int64_t>(size)};
}

HostAnswer setEof(ScriptDesktop& desktop, const HostEvent& event) {
  const HostValue* to = parameterOf(event, "to");
  const double size = to ? scriptNumber(*to).value_or(-1) : -1;
  if (!(size >= 0 && size < 1e15))
    return HostError{errors::badIndex, "A file can’t have that length."};
  std::error_code error;
  fs::resize_file(pathOf(event), static_cast<std::uintmax_t>(size), error);
  if (std::size_t* position = positionOf(desktop, pathOf(event)))
    *position = std::min(*position, static_cast<std::size_t>(size));
  return error ? notPermitted(pathOf(event)) : HostAnswer(HostValue{});
}

// No file descriptor is kept open: scripts go on to name the file by its path, and only the
// position is remembered.
HostAnswer openForAccess(ScriptDesktop& desktop, const HostEvent& event) {
  const std::string path = pathOf(event);
  if (flagParameter(event, "write permission", false) && !isReachable(path))
    std::ofstream(path).flush();
  if (!isReachable(path))
    return missingFile(path);
  desktop.openFiles[path] = 0;
  return HostValue{HostFile{path}};
}

HostAnswer closeAccess(ScriptDesktop& desktop, const HostEvent& event) {
  desktop.openFiles.erase(pathOf(event));
  return HostValue{};
}

HostAnswer listFolder(ScriptDesktop&, const HostEvent& event) {
  const bool showsHidden = flagParameter(event, "invisibles", true);
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator each(pathOf(event), error), end; !error && each != end;
       each.increment(error))
    if (std::string name = each->path().filename().string(); showsHidden || name[0] != '.')
      names.push_back(std::move(name));
  if (error)
    return missingFile(pathOf(event));
  std::sort(names.begin(), names.end());
  HostList list;
  for (std::string& name : names)
    list.push_back({std::move(name)});
  return HostValue{list};
}

HostAnswer infoFor(ScriptDesktop&, const HostEvent& event) {
  const fs::path path = pathOf(event);
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (error || !fs::exists(status))
    return missingFile(path.string());
  const bool isFolder = fs::is_directory(status);
  const auto size = isFolder ? 0 : fs::file_size(path, error);
  return HostValue{HostRecord{{"name", {path.filename().string()}},
                              {"folder", {isFolder}},
                              {"size", {static_cast<std::int64_t>(size)}},
                              {"name extension", {path.extension().string()}}}};
}

} // namespace

const ScriptCommands& fileCommands() {
  static const ScriptCommands all{{"read", read},
                                  {"write", write},
                                  {"get eof", getEof},
                                  {"set eof", setEof},
                                  {"info for", infoFor},
                                  {"open for access", openForAccess},
                                  {"list folder", listFolder},
                                  {"close access", closeAccess}};
  return all;
}

} // namespace tavrel
