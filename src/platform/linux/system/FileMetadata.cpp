#include "platform/linux/system/FileMetadata.h"

#include "platform/linux/system/FileDescriptor.h"

#include <array>
#include <fcntl.h>
#include <linux/limits.h>
#include <string_view>
#include <sys/xattr.h>
#include <vector>

namespace tavrel {

namespace {

constexpr mode_t permissionBits = 07777;
constexpr mode_t setIdBits = S_ISUID | S_ISGID;

bool isUserAttribute(std::string_view attribute) {
  return attribute.starts_with("user.");
}

std::vector<std::string> attributeNames(int file) {
  std::string all(XATTR_LIST_MAX, '\0');
  const ssize_t length = ::flistxattr(file, all.data(), all.size());
  std::vector<std::string> names;
  for (std::size_t at = 0; at < static_cast<std::size_t>(std::max<ssize_t>(length, 0));) {
    names.emplace_back(all.c_str() + at);
    at += names.back().size() + 1;
  }
  return names;
}

std::error_code copyAttribute(int from, int to, const std::string& name) {
  std::vector<char> value(XATTR_SIZE_MAX);
  const ssize_t size = ::fgetxattr(from, name.c_str(), value.data(), value.size());
  if (size < 0)
    return lastError();
  return outcome(::fsetxattr(to, name.c_str(), value.data(), static_cast<std::size_t>(size), 0));
}

std::error_code copyUserAttributes(int from, int to, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    const std::error_code error =
        isUserAttribute(name) ? copyAttribute(from, to, name) : std::error_code();
    if (error && error != std::errc::operation_not_supported && error != std::errc::not_supported)
      return error;
  }
  return {};
}

/// Access control lists, capabilities and security labels: most of them only root may set, so a
/// failure is no error.
void copySystemAttributes(int from, int to, const std::vector<std::string>& names) {
  for (const std::string& name : names)
    if (!isUserAttribute(name))
      (void)copyAttribute(from, to, name);
}

mode_t modeFor(const struct stat& status, bool ownerKept) {
  return status.st_mode & permissionBits & ~(ownerKept ? 0 : setIdBits);
}

std::array<timespec, 2> timesOf(const struct stat& status) {
  return {status.st_atim, status.st_mtim};
}

} // namespace

std::error_code copyMetadata(int from, const struct stat& status, int to) {
  const std::vector<std::string> names = attributeNames(from);
  if (const auto error = copyUserAttributes(from, to, names)) // before the mode may forbid writing
    return error;
  const bool ownerKept = ::fchown(to, status.st_uid, status.st_gid) == 0;
  (void)::fchmod(to, modeFor(status, ownerKept));
  copySystemAttributes(from, to, names); // last: a change of the owner removes capabilities
  (void)::futimens(to, timesOf(status).data());
  return {};
}

void copyAttributes(int from, int to) {
  const std::vector<std::string> names = attributeNames(from);
  (void)copyUserAttributes(from, to, names);
  copySystemAttributes(from, to, names);
}

void copyNodeMetadata(const struct stat& status, int folder, const std::string& name) {
  const bool ownerKept =
      ::fchownat(folder, name.c_str(), status.st_uid, status.st_gid, AT_SYMLINK_NOFOLLOW) == 0;
  if (!S_ISLNK(status.st_mode))
    (void)::fchmodat(folder, name.c_str(), modeFor(status, ownerKept), 0);
  (void)::utimensat(folder, name.c_str(), timesOf(status).data(), AT_SYMLINK_NOFOLLOW);
}

} // namespace tavrel
