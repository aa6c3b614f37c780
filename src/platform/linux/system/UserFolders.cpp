#include "platform/linux/system/UserFolders.h"

#include "base/PathString.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace tavrel {

std::string homeFolder() {
  const char* home = std::getenv("HOME");
  const passwd* account = home && *home == '/' ? nullptr : ::getpwuid(::getuid());
  std::string path = account ? account->pw_dir : home ? home : "/";
  while (path.size() > 1 && path.ends_with('/'))
    path.pop_back();
  return path;
}

namespace {
std::string configuredFolder(const char* variable, const char* belowHome) {
  const char* configured = std::getenv(variable);
  return configured && configured[0] == '/' ? configured
                                            : appendingPathComponent(homeFolder(), belowHome);
}
} // namespace

std::string preferenceFolder() {
  return configuredFolder("XDG_CONFIG_HOME", ".config");
}

std::string stateFolder() {
  return configuredFolder("XDG_STATE_HOME", ".local/state");
}

std::vector<std::string> userFolders() {
  using Place = QStandardPaths::StandardLocation;
  std::vector<std::string> folders;
  for (const Place place :
       {Place::DesktopLocation, Place::DocumentsLocation, Place::DownloadLocation,
        Place::PicturesLocation, Place::MusicLocation, Place::MoviesLocation}) {
    const QString path = QDir::cleanPath(QStandardPaths::writableLocation(place));
    folders.push_back(QFile::encodeName(path).toStdString());
  }
  folders.push_back(homeFolder());
  return folders;
}

} // namespace tavrel
