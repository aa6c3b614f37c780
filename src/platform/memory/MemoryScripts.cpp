#include "platform/memory/MemoryScripts.h"

#include "base/Format.h"

namespace tavrel {

bool MemoryScripts::isOpen(ComponentInstance component) const {
  return component != 0 && component <= control.componentsOpened;
}

OSAID MemoryScripts::newId() {
  control.live.insert(++lastId_);
  return lastId_;
}

ComponentInstance MemoryScripts::openDefaultComponent(std::uint32_t type, std::uint32_t subtype) {
  if (!control.componentOpens || type != kOSAComponentType || subtype != kAppleScriptSubtype)
    return 0;
  return ++control.componentsOpened;
}

LoadedScript MemoryScripts::load(ComponentInstance component, const std::string& path) {
  if (!isOpen(component))
    return {osaError::componentNotFound, 0, false};
  const auto file = control.files.find(path);
  if (file == control.files.end())
    return {osaError::fileNotFound, 0, false};
  if (file->second.loadCode != osaError::none)
    return {file->second.loadCode, 0, false};
  const OSAID id = newId();
  loaded_.insert({id, {path, file->second}});
  control.log.push_back("load " + path + " = " + std::to_string(id));
  return {osaError::none, id, file->second.storable};
}

ExecutedScript MemoryScripts::execute(ComponentInstance component, OSAID script) {
  if (!isOpen(component))
    return {osaError::componentNotFound, 0};
  const auto found = loaded_.find(script);
  if (found == loaded_.end())
    return {osaError::invalidID, 0};
  Loaded& loaded = found->second;
  control.ran.push_back(loaded.path);
  const OSAError code = loaded.file.body ? loaded.file.body(loaded.file.properties) : 0;
  const OSAID result = code == osaError::none && loaded.file.hasResult ? newId() : 0;
  control.log.push_back("execute " + std::to_string(script) + " = " + std::to_string(result));
  return {code, result};
}

OSAError MemoryScripts::dispose(ComponentInstance component, OSAID id) {
  if (!isOpen(component))
    return osaError::componentNotFound;
  if (id == 0)
    return osaError::none;
  if (control.live.erase(id) == 0)
    return osaError::invalidID;
  loaded_.erase(id);
  control.log.push_back("dispose " + std::to_string(id));
  return osaError::none;
}

OSAError MemoryScripts::store(ComponentInstance component, OSAID script, const std::string& path) {
  if (!isOpen(component))
    return osaError::componentNotFound;
  const auto loaded = loaded_.find(script);
  if (loaded == loaded_.end())
    return osaError::invalidID;
  control.log.push_back("store " + std::to_string(script) + " " + path);
  const auto file = control.files.find(path);
  if (file == control.files.end())
    return osaError::fileNotFound;
  const OSAError code = file->second.storeCode;
  if (code == osaError::none)
    file->second = loaded->second.file;
  return code;
}

namespace {
class ResultScript final : public NSAppleScript {
public:
  explicit ResultScript(std::function<std::optional<AppleEventDescriptor>()> body)
      : body_(std::move(body)) {}
  std::optional<AppleEventDescriptor> execute() override { return body_(); }

private:
  std::function<std::optional<AppleEventDescriptor>()> body_;
};
} // namespace

std::unique_ptr<NSAppleScript> MemoryScripts::initWithContentsOfFile(const std::string& path) {
  const auto found = control.resultScripts.find(path);
  if (found == control.resultScripts.end())
    return nullptr;
  return std::make_unique<ResultScript>(found->second);
}

std::optional<SourceRun> MemoryScripts::runSource(const std::string& source) {
  return run({source, ScriptOrigin::User});
}

std::optional<SourceRun> MemoryScripts::runOwnSource(const OwnSource& source) {
  return run({filledInOrder(source.form, source.texts), ScriptOrigin::Application});
}

std::optional<SourceRun> MemoryScripts::run(const Source& source) {
  if (control.unusableSources.contains(source.text))
    return std::nullopt;
  control.sources.push_back(source);
  if (control.sourceRan)
    control.sourceRan(source.text);
  const auto error = control.sourceErrors.find(source.text);
  if (error == control.sourceErrors.end())
    return SourceRun{};
  return SourceRun{error->second};
}

} // namespace tavrel
