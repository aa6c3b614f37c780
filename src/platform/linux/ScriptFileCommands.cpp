#include "base/Utf8.h"
#include "platform/linux/BoundedFile.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/ScriptAdditions.h"
#include "platform/linux/ScriptArguments.h"
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

// A path that cannot be is not there.
bool isReachable(const std::string& path) {
  std::error_code ignored;
  return fs::exists(path, ignored);
}

HostAnswer read(ScriptDesktop&, const HostEvent& event) {
  const std::string path = pathOf(event);
  const auto contents = readFile(path, largestText);
  if (!contents)
    return missingFile(path);
  const std::size_t start = startOf(event, "from", contents->size());
  const HostValue* count = parameterOf(event, "for");
  const double bytes = count ? scriptNumber(*count).value_or(0) : 1e18;
  if (start == contents->size() && !contents->empty())
    return HostError{errors::endOfFile, "End of file."};
  const double rest = static_cast<double>(contents->size() - start);
  std::string text =
      contents->substr(start, static_cast<std::size_t>(std::clamp(bytes, 0.0, rest)));
  const std::string until = textParameter(event, "until") + textParameter(event, "before");
  if (const std::size_t end = text.find(until); !until.empty() && end != std::string::npos)
    text.resize(end + (parameterOf(event, "until") ? until.size() : 0));
  if (!isUtf8(text))
    return HostError{errors::cannotCoerce, "What was read of " + path + " is no UTF-8 text."};
  return HostValue{std::move(text)};
}

// In place at a byte, or from the start; the rest of the file stays, as the language has it.
HostAnswer write(ScriptDesktop&, const HostEvent& event) {
  const HostValue* to = parameterOf(event, "to");
  const std::vector<std::string> paths = to ? scriptPaths(*to) : std::vector<std::string>();
  if (paths.empty())
    return HostError{errors::missingParameter, "There is no file to write to."};
  std::error_code error;
  const auto size = isReachable(paths.front()) ? fs::file_size(paths.front(), error) : 0;
  const HostValue* at = parameterOf(event, "starting at");
  const bool atEnd = at && scriptText(*at) == "eof";
  const std::size_t start = atEnd ? size : startOf(event, "starting at", size);
  if (!isReachable(paths.front()))
    std::ofstream(paths.front()).flush();
  std::fstream file(paths.front(), std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(static_cast<std::streamoff>(start));
  file << directText(event) << std::flush;
  return file ? HostAnswer(HostValue{}) : notPermitted(paths.front());
}

HostAnswer getEof(ScriptDesktop&, const HostEvent& event) {
  std::error_code error;
  const auto size = fs::file_size(pathOf(event), error);
  return error ? missingFile(pathOf(event)) : HostValue{static_cast<std::int64_t>(size)};
}

HostAnswer setEof(ScriptDesktop&, const HostEvent& event) {
  const HostValue* to = parameterOf(event, "to");
  const double size = to ? scriptNumber(*to).value_or(-1) : -1;
  if (!(size >= 0 && size < 1e15))
    return HostError{errors::badIndex, "A file can’t have that length."};
  std::error_code error;
  fs::resize_file(pathOf(event), static_cast<std::uintmax_t>(size), error);
  return error ? notPermitted(pathOf(event)) : HostAnswer(HostValue{});
}

// A file is named by its path from then on: there is nothing to keep open.
HostAnswer openForAccess(ScriptDesktop&, const HostEvent& event) {
  const std::string path = pathOf(event);
  if (flagParameter(event, "write permission", false) && !isReachable(path))
    std::ofstream(path).flush();
  return isReachable(path) ? HostAnswer(HostValue{HostFile{path}}) : missingFile(path);
}

HostAnswer closeAccess(ScriptDesktop&, const HostEvent&) {
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
