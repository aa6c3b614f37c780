#include "platform/macos/ScriptFile.h"

#include "platform/macos/ReplacementFolder.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

// The scripting component still speaks of files as it always did.
#pragma clang diagnostic ignored "-Wdeprecated-declarations"

namespace tavrel {

namespace {

OSAError storeAt(::ComponentInstance component, ::OSAID script, const std::string& path) {
  const auto file = referenceTo(path);
  return file ? OSAStoreFile(component, script, typeOSAGenericStorage, kOSAModeNull, &*file)
              : cannotWriteScript;
}

/// Storing into a copy, which then takes the file's place.
OSAError storeThroughCopy(::ComponentInstance component, ::OSAID script, const std::string& path) {
  const ReplacementFolder folder(path);
  const std::string copy = folder.copyOf(path);
  if (copy.empty())
    return cannotWriteScript;
  const OSAError code = storeAt(component, script, copy);
  if (code != osaError::none)
    return code;
  return ::rename(copy.c_str(), path.c_str()) == 0 ? osaError::none : cannotWriteScript;
}

} // namespace

std::optional<FileState> stateOf(const std::string& path) {
  struct stat status = {};
  if (path.find('\0') != std::string::npos || ::stat(path.c_str(), &status) != 0)
    return std::nullopt;
  return FileState{status.st_mtimespec.tv_sec, status.st_mtimespec.tv_nsec, status.st_size,
                   status.st_ino};
}

std::optional<FSRef> referenceTo(const std::string& path) {
  FSRef reference{};
  const auto* bytes = reinterpret_cast<const UInt8*>(path.c_str());
  return FSPathMakeRef(bytes, &reference, nullptr) == noErr ? std::optional(reference)
                                                            : std::nullopt;
}

// A script bundle is a folder of many files, which the component itself replaces.
OSAError storeScript(::ComponentInstance component, ::OSAID script, const std::string& path) {
  const std::unique_ptr<char, void (*)(void*)> real(::realpath(path.c_str(), nullptr), std::free);
  struct stat status = {};
  if (!real || ::access(path.c_str(), W_OK) != 0 || ::stat(real.get(), &status) != 0)
    return cannotWriteScript;
  return S_ISREG(status.st_mode) ? storeThroughCopy(component, script, real.get())
                                 : storeAt(component, script, path);
}

} // namespace tavrel
