#include "platform/linux/files/ItemKind.h"

#include "platform/linux/files/LinkEntry.h"
#include "platform/linux/files/MountHealth.h"
#include "platform/linux/system/BoundedFile.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tavrel {

namespace {
/// Extensions of folders that applications write as one document or plug-in.
constexpr std::array<std::string_view, 16> packageExtensions{
    "bundle", "framework", "key",           "kext", "mpkg",  "numbers", "pages", "pkg",
    "plugin", "prefpane",  "photoslibrary", "rtfd", "scptd", "service", "wdgt",  "xcodeproj"};
constexpr unsigned int executableByAnyone = S_IXUSR | S_IXGRP | S_IXOTH;
constexpr std::size_t elfTypeEnd = 18; // the ELF header's e_type are its bytes 16 and 17

std::string_view lastName(std::string_view path) {
  while (path.size() > 1 && path.ends_with('/'))
    path.remove_suffix(1);
  return path.substr(path.rfind('/') + 1);
}

/// The extension in small letters, without its full stop; empty for none.
std::string lowerCaseExtension(std::string_view path) {
  const std::string_view name = lastName(path);
  const std::size_t stop = name.rfind('.');
  if (stop == std::string_view::npos || stop == 0)
    return {};
  std::string result(name.substr(stop + 1));
  for (char& c : result)
    c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return result;
}

bool holdsAppRun(const std::string& directory) {
  return fileStatus(directory + "/AppRun", FinalLink::follow).has_value(); // may be a link, too
}

ItemKind kindOfDirectory(const std::string& path) {
  const std::string extension = lowerCaseExtension(path);
  if (extension == "app" || extension == "appdir" || holdsAppRun(path))
    return ItemKind::applicationBundle;
  const bool isPackageFolder =
      std::ranges::find(packageExtensions, extension) != packageExtensions.end();
  return isPackageFolder ? ItemKind::package : ItemKind::folder;
}

ItemKind kindOfEntry(const std::string& path) {
  const auto entry = loadDesktopEntry(path);
  if (entry && entry->type() == "Application")
    return ItemKind::program;
  return entry && linkTarget(*entry) ? ItemKind::alias : ItemKind::plainFile;
}

bool isSharedLibrary(std::string_view path) {
  const std::string_view name = lastName(path);
  return name.ends_with(".so") || name.find(".so.") != std::string_view::npos;
}

ItemKind kindOfExecutable(const std::string& path) {
  const std::string start = readStartOfRegular(path, elfTypeEnd).value_or(std::string());
  if (start.starts_with("#!"))
    return ItemKind::script;
  const bool elf = start.size() == elfTypeEnd && start.starts_with("\x7F"
                                                                   "ELF");
  const int type = elf ? start[16] + start[17] : 0; // one byte is 0, whatever the byte order
  const bool isExecutable = type == 2 || type == 3; // ET_EXEC, or ET_DYN: position-independent
  return isExecutable ? ItemKind::program : ItemKind::plainFile;
}

ItemKind kindOfFile(const std::string& path, const FileStatus& status) {
  const std::string extension = lowerCaseExtension(path);
  if (extension == "desktop")
    return kindOfEntry(path);
  if (extension == "applescript")
    return ItemKind::script;
  if (extension == "appimage")
    return ItemKind::program;
  const bool mayBeProgram =
      (status.mode & executableByAnyone) && status.size > 2 && !isSharedLibrary(path);
  return mayBeProgram ? kindOfExecutable(path) : ItemKind::plainFile;
}

} // namespace

std::optional<FileStatus> fileStatus(const std::string& path, FinalLink link) {
  return askWithTimeout(path, link, std::optional<FileStatus>(),
                        [path, link] { return fileStatusNow(path, link); });
}

std::optional<FileStatus> fileStatusNow(const std::string& path, FinalLink link) {
  if (path.empty() || path.find('\0') != std::string::npos)
    return std::nullopt;
  struct statx status = {};
  const int flags = link == FinalLink::keep ? AT_SYMLINK_NOFOLLOW : 0;
  constexpr unsigned int wanted = STATX_TYPE | STATX_MODE | STATX_SIZE;
  if (::statx(AT_FDCWD, path.c_str(), flags, wanted, &status) != 0)
    return std::nullopt;
  return FileStatus{status.stx_mode, static_cast<std::size_t>(status.stx_size)};
}

ItemKind itemKind(const std::string& path, const FileStatus& status) {
  if (S_ISLNK(status.mode))
    return ItemKind::symlink;
  if (S_ISDIR(status.mode))
    return kindOfDirectory(path);
  return S_ISREG(status.mode) ? kindOfFile(path, status) : ItemKind::plainFile;
}

bool isPackage(const std::string& directory) {
  return kindOfDirectory(directory) != ItemKind::folder;
}

} // namespace tavrel
