#include "platform/linux/files/FolderReader.h"

#include "base/PathString.h"
#include "platform/linux/files/DistantMounts.h"
#include "platform/linux/files/ItemKind.h"
#include "platform/linux/files/LinkEntry.h"
#include "platform/linux/files/LinuxFiles.h"
#include "platform/linux/files/MountPoints.h"

#include <dirent.h>

namespace tavrel {

namespace {

/// What a name's listing leaves open about it.
enum class OpenQuestion { none, package, target };

struct ReadName {
  ListedFile file;
  OpenQuestion open = OpenQuestion::none;
};

ReadName readName(const dirent& entry) {
  ReadName name{{entry.d_name, entry.d_name, false, FileKind::plain}, OpenQuestion::none};
  if (entry.d_type == DT_DIR) {
    name.file.kind = FileKind::directory;
    name.open = OpenQuestion::package;
  } else if (entry.d_type == DT_LNK || entry.d_type == DT_UNKNOWN) {
    name.file.kind = FileKind::none;
    name.open = OpenQuestion::target;
  } else if (hasEntryEnding(entry.d_name)) {
    name.open = OpenQuestion::target;
  }
  return name;
}

std::vector<ReadName> readNames(const std::string& folder) {
  std::vector<ReadName> names;
  if (folder.find('\0') != std::string::npos)
    return names;
  HiddenNames hidden;
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(::opendir(folder.c_str()), ::closedir);
  while (const dirent* entry = stream ? ::readdir(stream.get()) : nullptr) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..")
      continue;
    names.push_back(readName(*entry));
    names.back().file.invisible = hidden.hides(appendingPathComponent(folder, name));
  }
  return names;
}

void publish(const std::vector<ReadName>& names, FolderReading& reading) {
  std::vector<ListedFile> files;
  files.reserve(names.size());
  for (const ReadName& name : names)
    files.push_back(name.file);
  const std::lock_guard lock(reading.mutex);
  reading.files = std::move(files);
  reading.namesRead = true;
}

/// Answers the open questions, with means of its own: what others ask must not wait for these.
class NameInquiry {
public:
  NameInquiry(const std::string& folder, FolderReading& reading)
      : folder_(folder), reading_(reading) {}

  void ask(const std::vector<ReadName>& names, OpenQuestion question) {
    std::vector<std::size_t> distant;
    for (std::size_t i = 0; i < names.size(); ++i)
      if (question == OpenQuestion::target && names[i].open == question && isDistant(names[i]))
        distant.push_back(i);
      else if (names[i].open == question)
        ask(names[i], i);
    for (const std::size_t i : distant)
      ask(names[i], i);
  }

private:
  [[nodiscard]] bool isDistant(const ReadName& name) const {
    return distantMountOf(appendingPathComponent(folder_, name.file.name), FinalLink::follow)
        .has_value();
  }

  void ask(const ReadName& name, std::size_t index) {
    const std::string path = appendingPathComponent(folder_, name.file.name);
    if (mountPoints_.contains(path)) // whatever is mounted there is a folder, and may not answer
      return;
    {
      const std::lock_guard lock(reading_.mutex);
      reading_.asking = name.file.name;
    }
    ListedFile answer = name.file;
    answer.kind = kindOf(path, name.open);
    answer.displayName = files_.displayName(path);
    const std::lock_guard lock(reading_.mutex);
    reading_.files[index] = std::move(answer);
  }

  FileKind kindOf(const std::string& path, OpenQuestion question) {
    if (question == OpenQuestion::package)
      return isPackage(path) ? FileKind::package : FileKind::directory;
    const std::string resolved = files_.resolveSymlinks(path);
    return files_.kind(files_.resolveAlias(resolved).value_or(resolved));
  }

  const std::string& folder_;
  FolderReading& reading_;
  std::set<std::string> mountPoints_ = mountPoints();
  LinuxFiles files_;
};

} // namespace

void readFolder(const std::string& folder, FolderReading& reading) {
  const std::vector<ReadName> names = readNames(folder);
  publish(names, reading);
  NameInquiry inquiry(folder, reading);
  inquiry.ask(names, OpenQuestion::package);
  inquiry.ask(names, OpenQuestion::target);
  const std::lock_guard lock(reading.mutex);
  reading.done = true;
  reading.finished.notify_all();
}

} // namespace tavrel
