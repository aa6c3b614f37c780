// Removes installed pieces with an administrator's rights: started once, by the rights service of
// the desktop, it says "ready" and then takes the name of a component a line until its input ends.
// It knows no other places than those pieces, whatever it is asked.

#include "base/PathString.h"
#include "platform/linux/installation/InstalledComponents.h"
#include "platform/linux/transfers/SafeRemoval.h"

#include <climits>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <pwd.h>
#include <string>
#include <unistd.h>

namespace {

std::string resolved(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr),
                                                         &std::free);
  return real ? real.get() : std::string();
}

// Installed as PREFIX/libexec/tavrel/tavrel-uninstall-helper.
std::string prefix() {
  std::string path = resolved("/proc/self/exe");
  for (int levels = 0; levels < 3; ++levels)
    path = tavrel::deletingLastPathComponent(path);
  return path;
}

// Whoever asked for the rights, and nobody the environment names: that is the asker's.
std::string home() {
  const char* asker = std::getenv("PKEXEC_UID");
  if (!asker) {
    const char* own = std::getenv("HOME");
    return own ? resolved(own) : std::string();
  }
  const passwd* person = ::getpwuid(static_cast<uid_t>(std::strtoul(asker, nullptr, 10)));
  return person ? resolved(person->pw_dir) : std::string();
}

void remove(const std::string& name, const tavrel::InstallationFolders& folders) {
  const auto component = tavrel::componentNamed(name);
  if (!component) {
    std::cout << "unknown component\n";
    return;
  }
  const tavrel::ComponentLocation location = tavrel::locationOf(*component, folders);
  const std::string problem = location.folder.empty()
                                  ? "has no folder"
                                  : tavrel::removeBelow(location.folder, location.relativePath);
  if (!problem.empty())
    std::cout << location.folder << '/' << location.relativePath << ": " << problem << '\n';
}

} // namespace

int main() {
  const tavrel::InstallationFolders folders{prefix(), home()};
  std::cout << "ready" << std::endl;
  for (std::string line; std::getline(std::cin, line);) {
    remove(line, folders);
    std::cout << '\0' << std::flush; // the end of this answer
  }
  return 0;
}
