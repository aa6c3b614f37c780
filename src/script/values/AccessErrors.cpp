#include "script/values/AccessErrors.h"

#include "script/ScriptError.h"
#include "script/values/Description.h"

namespace tavrel::script {
namespace {

[[noreturn]] void refuseAccess(int number, const char* verb, const std::string& what,
                               const Value& whole) {
  std::string message = "Can’t ";
  message.append(verb).append(" ").append(what).append(" of ");
  message.append(described(whole)).append(".");
  throw ScriptError{number, std::move(message)};
}

} // namespace

void cannotGet(const std::string& what, const Value& whole) {
  refuseAccess(errors::noSuchObject, "get", what, whole);
}

void cannotSet(const std::string& what, const Value& whole) {
  refuseAccess(errors::cannotSet, "set", what, whole);
}

} // namespace tavrel::script
