#include "platform/linux/applications/ApplicationNames.h"

#include "base/PathString.h"
#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/applications/ExecLine.h"
#include "platform/linux/applications/FileManagerRoles.h"
#include "platform/linux/applications/WindowMatch.h"

#include <algorithm>

namespace tavrel {

namespace {

void addName(std::vector<std::string>& names, const std::string& name) {
  if (!name.empty() && std::ranges::find(names, name) == names.end())
    names.push_back(name);
}

void addFile(std::vector<std::string>& names, const std::string& path) {
  addName(names, lastPathComponent(path));
  addName(names, deletingPathExtension(lastPathComponent(path)));
}

void addProgram(std::vector<std::string>& names, const std::string& program) {
  if (!isInterpreter(program))
    addName(names, lastPathComponent(program));
}

/// The core knows the file managers and this program by these; an entry may say anything.
bool isTaken(const std::string& name) {
  return name == ownApplicationName || name == nameOf(FileManagerRole::finder) ||
         name == nameOf(FileManagerRole::pathFinder) ||
         name == "TextEdit"; // whose selection a script takes
}

std::string freeName(const InstalledApplication& application, const std::string& locale) {
  const std::string name = application.entry->name(locale);
  return isTaken(name) ? std::string() : name;
}

bool goesBy(const RunningApplication& application, const std::string& name) {
  return !name.empty() &&
         (application.name == name || application.path == name ||
          std::ranges::find(application.otherNames, name) != application.otherNames.end());
}

} // namespace

std::string stemOf(const InstalledApplication& application) {
  return application.id.substr(0, application.id.rfind(".desktop"));
}

std::string programOf(const InstalledApplication& application) {
  const auto line = splitExec(application.entry->exec());
  return line ? lastPathComponent(line->front()) : std::string();
}

std::string displayNameOf(const InstalledApplication& application) {
  const std::string name = freeName(application, messagesLocale());
  return name.empty() ? stemOf(application) : name;
}

std::vector<std::string> otherNamesOf(const InstalledApplication& application,
                                      const std::string& executable) {
  std::vector<std::string> names;
  addName(names, freeName(application, messagesLocale()));
  addName(names, freeName(application, {}));
  addName(names, application.id);
  addName(names, stemOf(application));
  addFile(names, application.path);
  addProgram(names, executable);
  addProgram(names, programOf(application));
  return names;
}

std::vector<std::string> otherNamesOf(const std::string& executable) {
  std::vector<std::string> names;
  addFile(names, executable);
  return names;
}

std::optional<std::string> nameMeantBy(const std::string& text, const RunningApplication& front,
                                       const ApplicationRegistry& registry) {
  const std::string file = lastPathComponent(text);
  if (goesBy(front, text) || goesBy(front, file))
    return front.name;
  const std::string stem = deletingPathExtension(file);
  if (!goesBy(front, stem))
    return std::nullopt;
  return registry.isName(file) ? file : front.name;
}

} // namespace tavrel
