#include "platform/linux/LinuxScripts.h"

namespace tavrel {

ComponentInstance LinuxScripts::openDefaultComponent(std::uint32_t, std::uint32_t) {
  return 0;
}

LoadedScript LinuxScripts::load(ComponentInstance, const std::string&) {
  return {osaError::componentNotFound, 0, false};
}

ExecutedScript LinuxScripts::execute(ComponentInstance, OSAID) {
  return {osaError::componentNotFound, 0};
}

OSAError LinuxScripts::dispose(ComponentInstance, OSAID) {
  return osaError::componentNotFound;
}

OSAError LinuxScripts::store(ComponentInstance, OSAID, const std::string&) {
  return osaError::componentNotFound;
}

std::optional<SourceRun> LinuxScripts::runSource(const std::string&, ScriptOrigin) {
  return SourceRun{PropertyList::Dictionary{
      {"NSAppleScriptErrorMessage", "no scripting component is installed"},
      {"NSAppleScriptErrorNumber", osaError::componentNotFound},
  }};
}

} // namespace tavrel
