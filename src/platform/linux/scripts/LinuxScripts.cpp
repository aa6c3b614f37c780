#include "platform/linux/scripts/LinuxScripts.h"
#include "platform/common/ScriptSource.h"

#include "base/PathString.h"
#include "platform/linux/scripts/ResourceScript.h"

namespace tavrel {
namespace {

constexpr OSAError cannotRead = -54;
constexpr OSAError cannotWrite = -61;

/// Whether a file still holds the script that was loaded from it; the state may differ.
bool isSameScript(const ScriptFile& file, const PropertyList& container) {
  const std::string* old = file.container.stringFor("source");
  const std::string* loaded = container.stringFor("source");
  return old && loaded && *old == *loaded;
}

} // namespace

ComponentInstance LinuxScripts::openDefaultComponent(std::uint32_t type, std::uint32_t subtype) {
  return type == kOSAComponentType && subtype == kAppleScriptSubtype ? ++lastComponent_ : 0;
}

bool LinuxScripts::isOpen(ComponentInstance component) const {
  return component > 0 && component <= lastComponent_;
}

LoadedScript LinuxScripts::load(ComponentInstance component, const std::string& path) {
  if (!isOpen(component))
    return {osaError::componentNotFound, 0, false};
  const ScriptFile file = readScriptFile(path);
  switch (file.kind) {
  case ScriptFile::Kind::container:
    return add(path, file, engine_.loadContainer(file.container));
  case ScriptFile::Kind::source:
    return add(path, file, engine_.loadSource(file.source, script::Author::user));
  case ScriptFile::Kind::program:
    return add(path, file, script::ScriptId{0});
  case ScriptFile::Kind::missing:
    return {osaError::fileNotFound, 0, false};
  default:
    return {cannotRead, 0, false};
  }
}

LoadedScript LinuxScripts::add(const std::string& path, const ScriptFile& file,
                               const script::Engine::Loaded& loaded) {
  if (const auto* error = std::get_if<script::ErrorReport>(&loaded))
    return {error->number, 0, false};
  const bool hasSource = file.container.stringFor("source") != nullptr;
  scripts_[++lastId_] = {std::get<script::ScriptId>(loaded), path, file.form};
  return {osaError::none, lastId_, file.isWritable && hasSource};
}

ExecutedScript LinuxScripts::execute(ComponentInstance component, OSAID id) {
  if (!isOpen(component))
    return {osaError::componentNotFound, 0};
  const auto found = scripts_.find(id);
  if (found == scripts_.end())
    return {osaError::invalidID, 0};
  if (run(found->second) != osaError::none)
    return {osaError::scriptError, 0};
  results_.insert(++lastId_);
  return {osaError::none, lastId_};
}

OSAError LinuxScripts::run(const Script& script) {
  const LongRunningScripts::RunningScript running(longRunningScripts_,
                                                  lastPathComponent(script.path));
  if (script.id == 0)
    return runProgram_(script.path);
  return engine_.run(script.id).error ? osaError::scriptError : osaError::none;
}

OSAError LinuxScripts::dispose(ComponentInstance component, OSAID id) {
  if (!isOpen(component))
    return osaError::componentNotFound;
  if (id == 0 || results_.erase(id) > 0)
    return osaError::none;
  const auto found = scripts_.find(id);
  if (found == scripts_.end())
    return osaError::invalidID;
  engine_.dispose(found->second.id);
  scripts_.erase(found);
  return osaError::none;
}

OSAError LinuxScripts::store(ComponentInstance component, OSAID id, const std::string& path) {
  if (!isOpen(component))
    return osaError::componentNotFound;
  const auto found = scripts_.find(id);
  if (found == scripts_.end())
    return osaError::invalidID;
  const ScriptFile file = readScriptFile(path);
  if (file.kind == ScriptFile::Kind::missing)
    return osaError::fileNotFound;
  const auto container = engine_.container(found->second.id);
  const bool isStored = container && isSameScript(file, *container) &&
                        writeScriptFile(path, *container, found->second.form);
  return isStored ? osaError::none : cannotWrite;
}

std::unique_ptr<NSAppleScript> LinuxScripts::initWithContentsOfFile(const std::string& path) {
  const ScriptFile file = readScriptFile(path);
  if (file.kind != ScriptFile::Kind::container)
    return nullptr;
  const auto loaded = engine_.loadContainer(file.container);
  const auto* id = std::get_if<script::ScriptId>(&loaded);
  return id ? std::make_unique<ResourceScript>(engine_, *id, longRunningScripts_) : nullptr;
}

std::optional<SourceRun> LinuxScripts::runSource(const std::string& source) {
  return run(source, script::Author::user);
}

std::optional<SourceRun> LinuxScripts::runOwnSource(const OwnSource& source) {
  return run(sourceText(source), script::Author::application);
}

SourceRun LinuxScripts::run(const std::string& source, script::Author author) {
  const script::Engine::Loaded loaded = engine_.loadSource(source, author);
  if (const auto* error = std::get_if<script::ErrorReport>(&loaded))
    return {script::errorDictionary(*error, source)};
  const auto id = std::get<script::ScriptId>(loaded);
  const LongRunningScripts::RunningScript running(longRunningScripts_, "Tavrel");
  const script::RunResult run = engine_.run(id);
  engine_.dispose(id);
  if (!run.error)
    return {};
  return {script::errorDictionary(*run.error, source)};
}

} // namespace tavrel
