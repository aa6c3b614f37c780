#import "platform/macos/MacTransfer.h"

#include "base/PathString.h"
#import "platform/macos/Conversions.h"
#include "platform/macos/ReplacementFolder.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <optional>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace tavrel {

namespace {

/// One file of a transfer, and how far it has come.
struct Transfer {
  std::string from;
  std::string to;
  std::string staged{}; ///< a whole copy, next to where it is to be
};

bool standsAt(const std::string& path) {
  struct stat status = {};
  return ::lstat(path.c_str(), &status) == 0;
}

std::string realPath(const std::string& path) {
  const std::unique_ptr<char, void (*)(void*)> real(::realpath(path.c_str(), nullptr), std::free);
  return real ? real.get() : "";
}

bool isPlainName(const std::string& name) {
  return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos &&
         name.find('\0') == std::string::npos;
}

/// A folder cannot go into itself; a link to it can.
bool wouldHoldItself(const std::string& what, const std::string& destination) {
  struct stat status = {};
  return ::lstat(what.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
         (realPath(destination) + '/').starts_with(realPath(what) + '/');
}

bool refusesInOneStep(NSURL* file) {
  NSNumber* does = nil;
  return [file getResourceValue:&does forKey:NSURLVolumeSupportsExclusiveRenamingKey error:nil] &&
         does.boolValue;
}

// Some volumes have no atomic rename that fails when the target exists: there the system checks
// first.
bool renameExclusively(const std::string& from, const std::string& to) {
  if (refusesInOneStep(fileUrl(from)))
    return ::renamex_np(from.c_str(), to.c_str(), RENAME_EXCL) == 0;
  return [NSFileManager.defaultManager moveItemAtURL:fileUrl(from) toURL:fileUrl(to) error:nil];
}

bool removeTree(const std::string& path) {
  return [NSFileManager.defaultManager removeItemAtURL:fileUrl(path) error:nil];
}

bool onOneVolume(const std::string& one, const std::string& other) {
  struct stat a = {};
  struct stat b = {};
  return ::lstat(one.c_str(), &a) == 0 && ::stat(other.c_str(), &b) == 0 && a.st_dev == b.st_dev;
}

// A copy is written to a hidden folder first, so that an incomplete one is never taken for the
// file.
bool stageCopies(std::vector<Transfer>& transfers, const ReplacementFolder& folder) {
  for (Transfer& transfer : transfers)
    if ((transfer.staged = folder.copyOf(transfer.from)).empty())
      return false;
  return true;
}

bool isRemovable(const Transfer& transfer) {
  return [NSFileManager.defaultManager isDeletableFileAtPath:nsString(transfer.from)];
}

bool isWritableFolder(const std::string& path) {
  return ::access(path.c_str(), W_OK | X_OK) == 0;
}

std::optional<std::vector<Transfer>> planned(const std::string& source,
                                             const std::string& destination,
                                             const std::vector<std::string>& names) {
  if (names.empty() || std::set<std::string>(names.begin(), names.end()).size() != names.size())
    return std::nullopt;
  std::vector<Transfer> transfers;
  for (const std::string& name : names) {
    const Transfer transfer{appendingPathComponent(source, name),
                            appendingPathComponent(destination, name)};
    if (!isPlainName(name) || !standsAt(transfer.from) || standsAt(transfer.to) ||
        wouldHoldItself(transfer.from, destination))
      return std::nullopt;
    transfers.push_back(transfer);
  }
  return transfers;
}

void undo(const std::vector<Transfer>& placed) {
  for (const Transfer& transfer : placed)
    if (transfer.staged.empty())
      renameExclusively(transfer.to, transfer.from);
    else
      removeTree(transfer.to);
}

bool place(const std::vector<Transfer>& transfers) {
  std::vector<Transfer> placed;
  for (const Transfer& transfer : transfers) {
    if (!renameExclusively(transfer.staged.empty() ? transfer.from : transfer.staged,
                           transfer.to)) {
      undo(placed);
      return false;
    }
    placed.push_back(transfer);
  }
  return true;
}

/// Removes the sources of files that were moved by copying; false when some could not be removed.
bool removeCopiedSources(const std::vector<Transfer>& transfers) {
  bool all = true;
  for (const Transfer& transfer : transfers)
    if (!transfer.staged.empty())
      all = removeTree(transfer.from) && all;
  return all;
}

} // namespace

bool transferNames(FileOperation operation, const std::string& source,
                   const std::string& destination, const std::vector<std::string>& names) {
  if (!fileUrl(source) || !fileUrl(destination))
    return false;
  auto transfers = planned(source, destination, names);
  const bool moves = operation == FileOperation::move;
  if (!transfers || !isWritableFolder(destination) || (moves && !isWritableFolder(source)))
    return false;
  const bool renames = moves && std::ranges::all_of(*transfers, [&](const Transfer& each) {
                         return onOneVolume(each.from, destination);
                       });
  if (renames)
    return place(*transfers);
  if (moves && !std::ranges::all_of(*transfers, isRemovable))
    return false;
  const ReplacementFolder folder(destination);
  return stageCopies(*transfers, folder) && place(*transfers) &&
         (!moves || removeCopiedSources(*transfers));
}

} // namespace tavrel
