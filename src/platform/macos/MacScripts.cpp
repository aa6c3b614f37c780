#include "platform/macos/MacScripts.h"

#include "base/PathString.h"
#include "platform/macos/AppleScriptSources.h"

#include <Carbon/Carbon.h>

#include <copyfile.h>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

// The scripting component still speaks of files as it always did.
#pragma clang diagnostic ignored "-Wdeprecated-declarations"

namespace tavrel {

namespace {

constexpr OSAError cannotWriteScript = -61;

/// Which contents a file holds; they are others once somebody wrote to it.
struct FileState {
  std::int64_t seconds = 0;
  std::int64_t nanoseconds = 0;
  std::int64_t size = 0;
  std::uint64_t inode = 0;
  friend bool operator==(const FileState&, const FileState&) = default;
};

std::optional<FileState> stateOf(const std::string& path) {
  struct stat status {};
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

/// Storing into a copy, which then takes the file's place: on failure the file is as it was.
OSAError storeThroughCopy(::ComponentInstance component, OSAID script, const std::string& path) {
  const std::string ending = "." + pathExtension(path);
  std::string copy = deletingPathExtension(path) + ".tavrel-XXXXXX" + ending;
  const int made = ::mkstemps(copy.data(), static_cast<int>(ending.size()));
  if (made < 0)
    return cannotWriteScript;
  ::close(made);
  const bool copied = ::copyfile(path.c_str(), copy.c_str(), nullptr, COPYFILE_ALL) == 0;
  const auto file = copied ? referenceTo(copy) : std::nullopt;
  OSAError code = file
                      ? OSAStoreFile(component, script, typeOSAGenericStorage, kOSAModeNull, &*file)
                      : cannotWriteScript;
  if (code == osaError::none && ::rename(copy.c_str(), path.c_str()) != 0)
    code = cannotWriteScript;
  if (code != osaError::none)
    ::unlink(copy.c_str());
  return code;
}

/// A script bundle is a folder of many files, which the component itself replaces.
OSAError storeInPlace(::ComponentInstance component, OSAID script, const std::string& path) {
  const auto file = referenceTo(path);
  return file ? OSAStoreFile(component, script, typeOSAGenericStorage, kOSAModeNull, &*file)
              : cannotWriteScript;
}

OSAError storeScript(::ComponentInstance component, OSAID script, const std::string& path) {
  const std::unique_ptr<char, void (*)(void*)> real(::realpath(path.c_str(), nullptr), std::free);
  struct stat status {};
  if (!real || ::access(path.c_str(), W_OK) != 0 || ::stat(real.get(), &status) != 0)
    return cannotWriteScript;
  return S_ISREG(status.st_mode) ? storeThroughCopy(component, script, real.get())
                                 : storeInPlace(component, script, path);
}

} // namespace

struct MacScripts::Components {
  std::vector<::ComponentInstance> open;
  std::map<std::pair<ComponentInstance, OSAID>, FileState> loaded;

  [[nodiscard]] ::ComponentInstance find(ComponentInstance number) const {
    return number > 0 && number <= open.size() ? open[number - 1] : nullptr;
  }
};

MacScripts::MacScripts() : components_(std::make_unique<Components>()) {}

MacScripts::~MacScripts() {
  for (::ComponentInstance each : components_->open)
    CloseComponent(each);
}

ComponentInstance MacScripts::openDefaultComponent(std::uint32_t type, std::uint32_t subtype) {
  ::ComponentInstance opened = OpenDefaultComponent(type, subtype);
  if (!opened)
    return 0;
  components_->open.push_back(opened);
  return static_cast<ComponentInstance>(components_->open.size());
}

LoadedScript MacScripts::load(ComponentInstance component, const std::string& path) {
  ::ComponentInstance const instance = components_->find(component);
  if (!instance)
    return {osaError::componentNotFound, 0, false};
  const auto state = stateOf(path);
  const auto file = state ? referenceTo(path) : std::nullopt;
  if (!file)
    return {osaError::fileNotFound, 0, false};
  LoadedScript result;
  Boolean storable = false;
  ::OSAID script = kOSANullScript;
  result.code = OSALoadFile(instance, &*file, &storable, kOSAModeNull, &script);
  if (result.code != osaError::none)
    return result;
  result.script = script;
  result.storable = storable && ::access(path.c_str(), W_OK) == 0;
  components_->loaded.insert_or_assign({component, result.script}, *state);
  return result;
}

ExecutedScript MacScripts::execute(ComponentInstance component, OSAID script) {
  ::ComponentInstance const instance = components_->find(component);
  if (!instance)
    return {osaError::componentNotFound, 0};
  if (!components_->loaded.contains({component, script}))
    return {osaError::invalidID, 0};
  ::OSAID result = kOSANullScript;
  const OSAError code = OSAExecute(instance, script, kOSANullScript, kOSAModeNull, &result);
  return {code, code == osaError::none ? result : 0};
}

OSAError MacScripts::dispose(ComponentInstance component, OSAID id) {
  ::ComponentInstance const instance = components_->find(component);
  if (!instance)
    return osaError::componentNotFound;
  components_->loaded.erase({component, id});
  return id == 0 ? osaError::none : OSADispose(instance, id);
}

// Whoever edits a script while it runs wants what was edited.
OSAError MacScripts::store(ComponentInstance component, OSAID script, const std::string& path) {
  ::ComponentInstance const instance = components_->find(component);
  if (!instance)
    return osaError::componentNotFound;
  const auto known = components_->loaded.find({component, script});
  if (known == components_->loaded.end())
    return osaError::invalidID;
  const auto state = stateOf(path);
  if (!state)
    return osaError::fileNotFound;
  if (*state != known->second)
    return cannotWriteScript;
  const OSAError code = storeScript(instance, script, path);
  known->second = stateOf(path).value_or(*state);
  return code;
}

std::unique_ptr<NSAppleScript> MacScripts::initWithContentsOfFile(const std::string& path) {
  return appleScriptFromFile(path);
}

std::optional<SourceRun> MacScripts::runSource(const std::string& source, ScriptOrigin origin) {
  return runAppleScriptSource(source, origin);
}

} // namespace tavrel
