#include "platform/linux/applications/MimeAppsList.h"

#include <sstream>

namespace tavrel {

namespace {

std::string trimmed(const std::string& text) {
  const std::size_t begin = text.find_first_not_of(" \t\r");
  return begin == std::string::npos
             ? std::string()
             : text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

std::vector<std::string> idsIn(const std::string& value) {
  std::vector<std::string> ids;
  std::istringstream stream(value);
  for (std::string id; std::getline(stream, id, ';');)
    if (!trimmed(id).empty())
      ids.push_back(trimmed(id));
  return ids;
}

MimeAppsList::Choices* groupOf(MimeAppsList& list, const std::string& line) {
  if (line == "[Default Applications]")
    return &list.defaults;
  if (line == "[Added Associations]")
    return &list.added;
  return line == "[Removed Associations]" ? &list.removed : nullptr;
}

void addFolder(const std::string& folder, std::size_t dataFolder,
               const std::vector<std::string>& desktops, std::vector<MimeAppsFile>& files) {
  for (const std::string& desktop : desktops)
    files.push_back({folder + "/" + desktop + "-mimeapps.list", true, dataFolder});
  files.push_back({folder + "/mimeapps.list", false, dataFolder});
}

} // namespace

MimeAppsList parseMimeAppsList(std::string_view text) {
  MimeAppsList list;
  MimeAppsList::Choices* group = nullptr;
  std::istringstream stream{std::string(text)};
  for (std::string line; std::getline(stream, line);) {
    line = trimmed(line);
    const std::size_t equals = line.find('=');
    if (line.starts_with('['))
      group = groupOf(list, line);
    else if (group != nullptr && equals != std::string::npos && !line.starts_with('#'))
      (*group)[trimmed(line.substr(0, equals))] = idsIn(line.substr(equals + 1));
  }
  return list;
}

std::vector<MimeAppsFile> mimeAppsFiles(const XdgFolders& xdg) {
  std::vector<MimeAppsFile> files;
  for (const std::string& folder : xdg.config)
    addFolder(folder, 0, xdg.desktops, files);
  for (std::size_t index = 0; index < xdg.data.size(); ++index)
    addFolder(xdg.data[index] + "/applications", index, xdg.desktops, files);
  return files;
}

} // namespace tavrel
