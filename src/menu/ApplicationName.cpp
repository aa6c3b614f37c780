#include "menu/ApplicationName.h"

#include "base/PathString.h"
#include "platform/Applications.h"
#include "platform/Platform.h"

namespace tavrel {

std::string applicationName(const std::string& text, const RunningApplication& front) {
  if (const auto name = platform().applications.nameMeant(text, front))
    return *name;
  return deletingPathExtension(lastPathComponent(text));
}

} // namespace tavrel
