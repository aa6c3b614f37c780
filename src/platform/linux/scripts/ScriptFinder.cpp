#include "platform/linux/scripts/ScriptApplications.h"

#include "base/PathString.h"
#include "base/Url.h"
#include "platform/linux/scripts/FileManagerSelection.h"
#include "platform/linux/scripts/ScriptArguments.h"
#include "platform/linux/system/UserFolders.h"
#include "script/ScriptError.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QStandardPaths>

#include <algorithm>
#include <filesystem>

namespace tavrel {

using namespace script;

namespace {

std::string fileUrlOf(const std::string& path) {
  return fileUrlOfPath(path, PathIs::file);
}

constexpr int answerTimeoutMsecs = 5000;

HostAnswer missingItem() {
  return HostError{errors::fileNotFound, "There is no such file."};
}

std::vector<std::string> filesOf(const HostEvent& event) {
  return event.direct ? scriptPaths(*event.direct) : std::vector<std::string>();
}

bool isThere(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::exists(std::filesystem::symlink_status(path, ignored));
}

// File managers that can show items own this name on the bus.
bool showItems(const std::vector<std::string>& paths) {
  QStringList urls;
  for (const std::string& path : paths)
    urls << QString::fromStdString(fileUrlOf(path));
  QDBusMessage call = QDBusMessage::createMethodCall("org.freedesktop.FileManager1",
                                                     "/org/freedesktop/FileManager1",
                                                     "org.freedesktop.FileManager1", "ShowItems");
  call << urls << QString();
  const QDBusMessage reply =
      QDBusConnection::sessionBus().call(call, QDBus::Block, answerTimeoutMsecs);
  return reply.type() == QDBusMessage::ReplyMessage;
}

std::string roleEntry(const ScriptDesktop& desktop, const std::string& application) {
  return fileUrlOf(desktop.rolesFolder + "/" + application + ".desktop");
}

HostAnswer openWith(ScriptDesktop& desktop, const std::string& application,
                    const std::vector<std::string>& paths) {
  LaunchRequest request{roleEntry(desktop, application), {}};
  for (const std::string& path : paths)
    request.itemUrls.push_back(fileUrlOf(path));
  if (desktop.workspace.openUrlsWithApplication(request) == 0)
    return HostValue{};
  return HostError{errors::notRunning, "Application \"" + application + "\" can’t be started."};
}

bool isPathFinder(const HostEvent& event) {
  return event.application.size() > std::string("Finder").size();
}

// The bus name belongs to the first file manager; Path Finder, the second, is started by its entry.
HostAnswer reveal(ScriptDesktop& desktop, const HostEvent& event) {
  const std::vector<std::string> paths = filesOf(event);
  if (paths.empty() || !std::ranges::all_of(paths, isThere))
    return missingItem();
  if (!isPathFinder(event) && showItems(paths))
    return HostValue{};
  const std::string folder = deletingLastPathComponent(paths.front());
  if (isPathFinder(event))
    return openWith(desktop, "Path Finder", {folder});
  return desktop.workspace.openFile(folder) ? HostAnswer(HostValue{}) : missingItem();
}

HostAnswer openItem(ScriptDesktop& desktop, const HostEvent& event) {
  const std::vector<std::string> paths = filesOf(event);
  if (paths.empty() || !std::ranges::all_of(paths, isThere))
    return missingItem();
  if (isPathFinder(event))
    return openWith(desktop, "Path Finder", paths);
  for (const std::string& path : paths)
    if (!desktop.workspace.openFile(path))
      return HostError{errors::general, "Nothing can open “" + path + "”."};
  return HostValue{};
}

HostAnswer itemExists(ScriptDesktop& desktop, const HostEvent& event) {
  const std::vector<std::string> paths = filesOf(event);
  if (paths.empty())
    return askApplication(desktop, event);
  return HostValue{isThere(paths.front())};
}

HostAnswer transfer(ScriptDesktop& desktop, const HostEvent& event, FileOperation operation) {
  const std::vector<std::string> paths = filesOf(event);
  const HostValue* to = parameterOf(event, "to");
  const std::vector<std::string> folders = to ? scriptPaths(*to) : std::vector<std::string>();
  if (paths.empty() || folders.empty())
    return HostError{errors::missingParameter, "There are files and a folder to be told."};
  for (const std::string& path : paths)
    if (!desktop.workspace.performFileOperation(operation, deletingLastPathComponent(path),
                                                folders.front(), {lastPathComponent(path)}))
      return HostError{errors::general,
                       "“" + path + "” can’t be brought to “" + folders.front() + "”."};
  return HostValue{
      HostFile{appendingPathComponent(folders.front(), lastPathComponent(paths.back()))}};
}

HostAnswer move(ScriptDesktop& desktop, const HostEvent& event) {
  return transfer(desktop, event, FileOperation::move);
}

HostAnswer duplicate(ScriptDesktop& desktop, const HostEvent& event) {
  return transfer(desktop, event, FileOperation::copy);
}

HostAnswer getOfFinder(ScriptDesktop& desktop, const HostEvent& event) {
  const auto* object = event.direct ? std::get_if<ObjectPath>(&event.direct->value) : nullptr;
  if (!object || object->steps.empty())
    return askApplication(desktop, event);
  const std::vector<std::string> paths = filesOf(event);
  if (!paths.empty())
    return isThere(paths.front()) ? HostAnswer(HostValue{HostFile{paths.front()}}) : missingItem();
  const std::string& name = object->steps[0].name;
  if (object->steps.size() == 1 && name == "home")
    return HostValue{HostFile{homeFolder()}};
  if (object->steps.size() == 1 && name == "desktop")
    return HostValue{
        HostFile{QStandardPaths::writableLocation(QStandardPaths::DesktopLocation).toStdString()}};
  return askApplication(desktop, event);
}

HostAnswer performInFinder(ScriptDesktop& desktop, const HostEvent& event) {
  static const ScriptCommands commands{
      {"reveal", reveal}, {"select", reveal},       {"open", openItem},  {"exists", itemExists},
      {"move", move},     {"duplicate", duplicate}, {"get", getOfFinder}};
  const auto found = commands.find(event.command);
  return found != commands.end() ? found->second(desktop, event) : askApplication(desktop, event);
}

HostAnswer getSelection(ScriptDesktop& desktop, const std::string& role, const ObjectPath& object) {
  HostList files;
  for (const std::string& path : selectionOfFileManager(desktop, role))
    files.push_back({HostFile{path}});
  if (object.steps.size() == 1)
    return HostValue{files};
  const auto element =
      object.steps.size() == 2 ? listElement(files, object.steps[1]) : std::nullopt;
  return element ? HostAnswer(*element)
                 : HostError{errors::noSuchObject, "Can’t get that of the selection."};
}

// A command for the selection is carried out with the files that are selected now.
HostAnswer askSelection(ScriptDesktop& desktop, const HostEvent& event, const ObjectPath& object) {
  const HostAnswer answer = getSelection(desktop, event.application, object);
  const auto* files = std::get_if<HostValue>(&answer);
  if (!files || event.command == "get")
    return answer;
  const auto count = static_cast<std::int64_t>(scriptPaths(*files).size());
  if (event.command == "count")
    return HostValue{count};
  if (event.command == "exists")
    return HostValue{count > 0};
  return performInFinder(desktop, {event.application, event.command, *files, event.parameters});
}

} // namespace

HostAnswer askFileManager(ScriptDesktop& desktop, const HostEvent& event) {
  const ObjectPath* selection = objectIn(event, "selection");
  return selection ? askSelection(desktop, event, *selection) : performInFinder(desktop, event);
}

} // namespace tavrel
