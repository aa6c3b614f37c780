#include "platform/linux/installation/ResourceFolder.h"

#include <cstdlib>
#include <filesystem>

namespace tavrel {

namespace {
namespace fs = std::filesystem;

fs::path installedFolder() {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  return error ? fs::path() : program.parent_path().parent_path() / "share" / "tavrel";
}
} // namespace

std::string resourceFolder() {
  const char* named = std::getenv("TAVREL_RESOURCES");
  std::error_code ignored;
  if (named && named[0] != '\0')
    return fs::absolute(named, ignored).string();
  const fs::path installed = installedFolder();
  return fs::is_directory(installed, ignored) ? installed.string() : TAVREL_BUILT_RESOURCES;
}

} // namespace tavrel
