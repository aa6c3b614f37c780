#include "platform/macos/MacScripts.h"
#include "platform/common/ScriptSource.h"

#include "platform/macos/AppleScriptSources.h"
#include "platform/macos/ScriptFile.h"

#include <map>
#include <unistd.h>
#include <utility>
#include <vector>

// The scripting component still speaks of files as it always did.
#pragma clang diagnostic ignored "-Wdeprecated-declarations"

namespace tavrel {

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

// A script that the user edits while it runs keeps the edited contents.
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

std::optional<SourceRun> MacScripts::runSource(const std::string& source) {
  return runAppleScriptSource(source);
}

std::optional<SourceRun> MacScripts::runOwnSource(const OwnSource& source) {
  return runAppleScriptSource(sourceText(source));
}

} // namespace tavrel
