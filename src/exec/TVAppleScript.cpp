#include "exec/TVAppleScript.h"

#include "controller/ProcessState.h"
#include "platform/Platform.h"

namespace tavrel {

namespace {

OSAError load(TVAppleScript& script) {
  if (script._scriptID != 0)
    return osaError::none;
  const LoadedScript loaded = platform().scripts.load(sComponent, script.filePath);
  script._scriptID = loaded.script;
  script.storable = loaded.storable;
  return loaded.code;
}

} // namespace

TVAppleScript::TVAppleScript(std::string path) : filePath(std::move(path)) {
  if (sComponent == 0)
    sComponent = platform().scripts.openDefaultComponent(kOSAComponentType, kAppleScriptSubtype);
}

OSAError TVAppleScript::executeAndReturnError() {
  if (const OSAError code = load(*this); code != osaError::none)
    return code;
  Scripts& scripts = platform().scripts;
  const ExecutedScript executed = scripts.execute(sComponent, _scriptID);
  if (executed.code == osaError::none) {
    scripts.dispose(sComponent, executed.result);
    _dirty = true;
    save();
  }
  scripts.dispose(sComponent, _scriptID);
  _dirty = false;
  _scriptID = 0;
  return executed.code;
}

OSAError TVAppleScript::save() {
  if (!_dirty || filePath.empty() || !storable)
    return osaError::none;
  return platform().scripts.store(sComponent, _scriptID, filePath);
}

} // namespace tavrel
