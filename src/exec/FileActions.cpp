#include "exec/FileActions.h"

#include "base/Format.h"
#include "base/Numbers.h"
#include "base/PathString.h"
#include "controller/SettingsNow.h"
#include "exec/ScriptRunner.h"
#include "invoke/KeyState.h"
#include "menu/ItemRecord.h"
#include "menu/PathHelpers.h"
#include "platform/Platform.h"
#include "platform/Sounds.h"
#include "platform/Workspace.h"
#include "selection/PrivatePasteboard.h"

namespace tavrel {

namespace {
bool isHandedOver(const std::string& path, std::int32_t mask) {
  const bool folder = isDirectory(path, CleanPath::yes) == DirectoryKind::folder;
  return (mask & (folder ? openType::noFolders : openType::noFiles)) == 0;
}
} // namespace

std::int32_t openFiles(const std::vector<std::string>& paths, const std::string& application,
                       std::int32_t mask) {
  std::vector<std::string> urls;
  for (const std::string& path : paths) {
    const std::string clean = cleanedUpPath(path);
    if (isHandedOver(clean, mask))
      urls.push_back(fileUrlForPath(clean));
  }
  if (!urls.empty())
    return OpenDocuments(urls, application);
  platform().workspace.openFile(application);
  return 0;
}

std::int32_t OpenDocuments(const std::vector<std::string>& urls, const std::string& application) {
  return platform().workspace.openUrlsWithApplication({fileUrlForPath(application), urls});
}

bool moveSelectedFiles(const std::string& destination) {
  const auto files = capturedFiles();
  if (!files || files->empty())
    return false;
  std::vector<std::string> names;
  std::string source;
  for (const std::string& path : *files) {
    names.push_back(lastPathComponent(path));
    source = deletingLastPathComponent(path);
  }
  const FileOperation operation = CheckShiftKey() ? FileOperation::copy : FileOperation::move;
  const bool done =
      platform().workspace.performFileOperation(operation, source, destination, names);
  if (done)
    platform().sounds.play("didMoved");
  else
    platform().sounds.beep();
  return done;
}

void showInFinder(const std::string& path) {
  const char* browser = settingsNow::openWithPathFinder() ? "Path Finder" : "Finder";
  runOwnSource(
      {"tell application \"%@\" to reveal \"%@\" as POSIX file", {browser, cleanedUpPath(path)}});
}

void openFolderWithTerminal(const std::string& path) {
  const std::string command = path.empty() ? "cd ~" : filled("cd '%@'", path);
  execOwnSource({"tell application \"terminal\"\n"
                 "activate\n"
                 " if number of windows > 0 then \n"
                 " do script (\"%@\" as text) in window 1\n"
                 " else\n"
                 " do script (\"%@\" as text)\n"
                 " end if\n"
                 " end tell\n",
                 {command, command}});
}

std::int32_t GetApplicationFlavor(ProcessSerialNumber process) {
  const auto information = platform().applications.processInformation(process);
  const PropertyList* flavor = information ? information->find("Flavor") : nullptr;
  return flavor ? int32Value(*flavor).value_or(0) : 0;
}

} // namespace tavrel
