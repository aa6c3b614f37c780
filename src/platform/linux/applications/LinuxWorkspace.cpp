#include "platform/linux/applications/LinuxWorkspace.h"

#include "base/LocalUrl.h"
#include "base/Url.h"
#include "platform/linux/applications/FileManagerRoles.h"
#include "platform/linux/files/FileWithTimeout.h"
#include "platform/linux/files/MountHealth.h"
#include "platform/linux/installation/ThisInstallation.h"
#include "platform/linux/places/NetworkPlaces.h"
#include "platform/linux/processes/ProgramSearch.h"
#include "platform/linux/system/BoundedFile.h"
#include "platform/linux/transfers/FileTransfer.h"
#include "platform/linux/transfers/SafeRemoval.h"
#include "platform/linux/transfers/TransferJournal.h"

#include <QDebug>
#include <QLoggingCategory>
#include <QMimeDatabase>
#include <algorithm>
#include <filesystem>
#include <thread>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

Q_LOGGING_CATEGORY(workspaceLog, "tavrel.workspace")

constexpr std::int32_t applicationNotFound = -10814;
constexpr std::int32_t launchFailed = -10827;

/// Quoted, with line feeds and the like escaped: one line whatever the name.
QString quoted(const std::string& text) {
  QString result;
  QDebug(&result).nospace() << QString::fromStdString(text);
  return result;
}

/// Logs the refusal of an operation; true when there is none.
bool logRefusal(const char* what, const std::string& subject,
                const std::optional<std::string>& refusal) {
  if (refusal)
    qCWarning(workspaceLog).noquote() << what << quoted(subject) + QLatin1Char(':')
                                      << QString::fromStdString(*refusal).simplified();
  return !refusal;
}

bool isFolder(const std::string& path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored);
}

/// The program inside a folder that is an application.
std::optional<std::string> programOfAppDir(const std::string& path) {
  return isFolder(path) ? findProgram(path + "/AppRun") : std::nullopt;
}

bool isEntry(const std::string& path) {
  return path.ends_with(".desktop") && !isFolder(path);
}

bool isCompiledProgram(const std::string& path) {
  return findProgram(path).has_value() && readStart(path, 4) == "\x7F"
                                                                "ELF";
}

std::string urlOf(const std::string& path) {
  return fileUrlOfPath(path, isFolder(path) ? PathIs::directory : PathIs::file);
}

/// The MIME type of a file, then its parent types.
std::vector<std::string> mimeTypesOf(const std::string& path) {
  const QMimeType type = QMimeDatabase().mimeTypeForFile(
      QString::fromLocal8Bit(path.data(), static_cast<qsizetype>(path.size())));
  QStringList names{type.name()};
  names += type.aliases();
  names += type.allAncestors();
  std::vector<std::string> result;
  for (const QString& name : names)
    result.push_back(name.toStdString());
  return result;
}

/// What opening a path depends on.
struct OpenTarget {
  bool isThere = false;
  std::error_code error; ///< when it is unknown whether something is there
  bool isEntry = false;
  std::optional<std::string> program; ///< to be run instead of opened
  std::vector<std::string> mimeTypes;
  std::string url;
};

OpenTarget inspectNow(const std::string& path) {
  OpenTarget target;
  target.isThere = fs::exists(path, target.error);
  target.isEntry = target.isThere && isEntry(path);
  if (!target.isThere || target.isEntry)
    return target;
  target.program = programOfAppDir(path);
  if (!target.program && isCompiledProgram(path))
    target.program = path;
  if (!target.program)
    target.mimeTypes = mimeTypesOf(path);
  target.url = urlOf(path);
  return target;
}

/// All at once, within one timeout: a network mount may stop answering at any moment.
OpenTarget inspect(const std::string& path) {
  OpenTarget unanswered;
  unanswered.error = std::make_error_code(std::errc::timed_out);
  return askWithTimeout(path, FinalLink::follow, unanswered, [path] { return inspectNow(path); });
}

} // namespace

bool LinuxWorkspace::openFile(const std::string& path) {
  return logRefusal("cannot open", path, open(path));
}

LinuxWorkspace::Refusal LinuxWorkspace::open(const std::string& path) {
  const OpenTarget target = path.starts_with('/') ? inspect(path) : OpenTarget();
  if (const auto place = target.isThere ? std::nullopt : networkPlaceOfVolume(path))
    return openPlace(*place);
  if (!target.isThere)
    return target.error ? target.error.message() : "nothing is there";
  if (target.isEntry)
    return openEntry(path, {});
  if (target.program)
    return launcher_.launchProgram(*target.program, {});
  return openWithHandler(target.mimeTypes, target.url);
}

/// Most file managers open network URLs, but few have an entry that says so: the handlers of
/// folders are tried, too.
LinuxWorkspace::Refusal LinuxWorkspace::openPlace(const std::string& url) {
  return openWithHandler({"x-scheme-handler/" + urlScheme(url), "inode/directory"}, url);
}

bool LinuxWorkspace::openUrl(const std::string& url) {
  if (!isUrl(url) || urlScheme(url).empty())
    return logRefusal("cannot open", url, "not a URL");
  if (const auto path = localPathOfUrl(url))
    return openFile(*path);
  return logRefusal("cannot open", url,
                    openWithHandler({"x-scheme-handler/" + urlScheme(url)}, url));
}

LinuxWorkspace::Refusal LinuxWorkspace::openWithHandler(const std::vector<std::string>& mimeTypes,
                                                        const std::string& url) {
  registry_.refresh();
  Refusal refusal;
  for (const std::string& type : mimeTypes)
    for (const InstalledApplication* handler : registry_.handlersOf(type)) {
      const Refusal refused = launcher_.launch(*handler->entry, handler->id, handler->path, {url});
      if (!refused)
        return std::nullopt;
      refusal = handler->id + ": " + *refused;
    }
  return refusal ? refusal : "no application opens " + mimeTypes.front();
}

LinuxWorkspace::Refusal LinuxWorkspace::openEntry(const std::string& path,
                                                  const std::vector<std::string>& urls) {
  const std::optional<DesktopEntry> entry = loadEntryWithTimeout(path);
  if (!entry)
    return "not a desktop entry";
  if (entry->type() == "Application")
    return launch(*entry, path, urls);
  if (entry->type() != "Link" || entry->url().empty())
    return "an entry of type " + entry->type();
  const std::optional<std::string> target = localPathOfUrl(entry->url());
  if (!target)
    return openWithHandler({"x-scheme-handler/" + urlScheme(entry->url())}, entry->url());
  if (!isEntry(*target))
    return open(*target);
  // A link to a link is not followed: it may lead in a circle.
  const std::optional<DesktopEntry> end = loadEntryWithTimeout(*target);
  return end && end->type() == "Application" ? launch(*end, *target, urls)
                                             : Refusal("links to another link");
}

LinuxWorkspace::Refusal LinuxWorkspace::launch(const DesktopEntry& entry, const std::string& path,
                                               const std::vector<std::string>& urls) {
  registry_.refresh();
  if (const auto role = roleOfEntry(entry)) {
    const InstalledApplication* player = playerOf(*role, fileManagers(registry_));
    return player == nullptr ? Refusal("no file manager is installed")
                             : launcher_.launch(*player->entry, player->id, player->path, urls);
  }
  const auto known = std::ranges::find(registry_.applications(), path, &InstalledApplication::path);
  const std::string id =
      known != registry_.applications().end() ? known->id : fs::path(path).filename().string();
  return launcher_.launch(entry, id, path, urls);
}

std::int32_t LinuxWorkspace::openUrlsWithApplication(const LaunchRequest& request) {
  const std::string path = localPathOfUrl(request.applicationUrl).value_or("");
  const std::string program = programOfAppDir(path).value_or(path);
  const std::optional<DesktopEntry> entry = isEntry(path) ? loadDesktopEntry(path) : std::nullopt;
  const bool isApplication =
      isEntry(path) ? entry && entry->type() == "Application" : findProgram(program).has_value();
  if (!isApplication) {
    (void)logRefusal("cannot open documents with", request.applicationUrl, "no such application");
    return applicationNotFound;
  }
  const Refusal refused = entry ? launch(*entry, path, request.itemUrls)
                                : launcher_.launchProgram(program, request.itemUrls);
  return logRefusal("cannot open documents with", path, refused) ? 0 : launchFailed;
}

bool LinuxWorkspace::performFileOperation(FileOperation operation, const std::string& source,
                                          const std::string& destination,
                                          const std::vector<std::string>& names) {
  return logRefusal(
      operation == FileOperation::move ? "cannot move files to" : "cannot copy files to",
      destination, transferFiles(operation, source, destination, names, transferJournal()));
}

void LinuxWorkspace::finishInterruptedTransfers() {
  std::thread([journal = transferJournal()] {
    for (const std::string& line : tavrel::finishInterruptedTransfers(journal))
      qCWarning(workspaceLog).noquote() << QString::fromStdString(line);
  }).detach();
}

// A symbolic link is removed itself, not what it leads to.
bool LinuxWorkspace::removeFile(const std::string& path) {
  if (const auto component = componentLocation(path)) {
    const std::string problem = removeBelow(component->folder, component->relativePath);
    if (!problem.empty())
      qCWarning(workspaceLog).noquote()
          << quoted(component->relativePath) << QString::fromStdString(problem);
    return problem.empty();
  }
  std::error_code error;
  const auto removed = std::filesystem::remove_all(path, error);
  return !error && removed > 0;
}

std::int32_t LinuxWorkspace::systemVersion() {
  return 0x1068;
}

} // namespace tavrel
