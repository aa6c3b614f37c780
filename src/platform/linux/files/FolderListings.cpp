#include "platform/linux/files/FolderListings.h"

#include "platform/linux/files/FolderReader.h"
#include "platform/linux/files/MountHealth.h"

#include <QDebug>
#include <QLoggingCategory>

#include <system_error>
#include <thread>

namespace tavrel {

namespace {

Q_LOGGING_CATEGORY(filesLog, "tavrel.files")

/// One line whatever the name.
QString quotedName(const std::string& name) {
  QString result;
  QDebug(&result).nospace() << QString::fromStdString(name);
  return result;
}

void sayWhatIsMissing(const std::string& folder, const FolderReading& reading) {
  if (!reading.asking.empty())
    qCWarning(filesLog).noquote() << quotedName(reading.asking) << "in" << quotedName(folder)
                                  << "does not answer; the menu shows what is known";
  else
    qCWarning(filesLog).noquote() << quotedName(folder) << "does not answer; its submenu is empty";
}

/// Nothing that the thread holds belongs to anybody else: it may outlive them all.
std::shared_ptr<FolderReading> startReading(const std::string& folder) {
  auto reading = std::make_shared<FolderReading>();
  try {
    std::thread([folder, reading] { readFolder(folder, *reading); }).detach();
  } catch (const std::system_error&) { // no thread to be had
    readFolder(folder, *reading);
  }
  return reading;
}

bool isRead(FolderReading& reading) {
  const std::lock_guard lock(reading.mutex);
  return reading.done;
}

} // namespace

std::vector<ListedFile> FolderListings::browse(const std::string& folder) {
  std::erase_if(stuck_, [](const auto& each) { return isRead(*each.second); });
  const auto stuck = stuck_.find(folder);
  const bool answers = stuck == stuck_.end() && fileSystemAnswers(folder);
  const auto reading = stuck != stuck_.end() ? stuck->second
                       : answers             ? startReading(folder)
                                             : std::make_shared<FolderReading>();
  std::unique_lock lock(reading->mutex);
  if (answers)
    reading->finished.wait_for(lock, timeout_, [&] { return reading->done; });
  if (reading->done)
    return std::move(reading->files);
  if (answers)
    stuck_.emplace(folder, reading);
  sayWhatIsMissing(folder, *reading);
  return reading->files;
}

} // namespace tavrel
