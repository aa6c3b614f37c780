#include "menu/FileVisibility.h"

#include "base/PathString.h"
#include "controller/ProcessState.h"
#include "platform/Platform.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <string_view>

namespace tavrel {

namespace {
constexpr auto systemPaths =
    std::to_array<std::string_view>({"/var", "/tmp", "/dev", "/etc", "/mach", "/automount",
                                     "/mach.sym", "/mach_kernel", "/Desktop Folder", "/Network"});
} // namespace

// System 10.4 was the first that could ask about a link instead of its target.
FinalLink visibilityLink() {
  return gOsVersion >= 0x1040 ? FinalLink::keep : FinalLink::follow;
}

bool isInvisibleFile(const std::string& path) {
  const auto information = platform().files.information(path, visibilityLink());
  return information && (information->flags & itemFlag::invisible) != 0;
}

bool isHiddenSystemFile(const std::string& path) {
  const std::string name = lastPathComponent(path);
  assert(!name.empty());
  if (name.starts_with('.'))
    return true;
  if (gOsVersion < 0x1040 && name == "Print Center.app")
    return true;
  return std::find(systemPaths.begin(), systemPaths.end(), path) != systemPaths.end();
}

} // namespace tavrel
