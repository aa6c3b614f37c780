#include "platform/linux/images/SpecialFolderIcons.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace tavrel {

SpecialFolderIcons specialFolderIcons() {
  using Place = QStandardPaths::StandardLocation;
  SpecialFolderIcons folders;
  const std::pair<Place, const char*> places[] = {
      {Place::DocumentsLocation, "folder-documents"},
      {Place::DownloadLocation, "folder-download"},
      {Place::MusicLocation, "folder-music"},
      {Place::PicturesLocation, "folder-pictures"},
      {Place::PublicShareLocation, "folder-publicshare"},
      {Place::TemplatesLocation, "folder-templates"},
      {Place::MoviesLocation, "folder-videos"},
      {Place::DesktopLocation, "user-desktop"},
      {Place::HomeLocation,
       "user-home"}}; // last: a folder that is set to the home folder has that icon
  for (const auto& [place, icon] : places) {
    const QString path = QDir::cleanPath(QStandardPaths::writableLocation(place));
    folders[QFile::encodeName(path).toStdString()] = QLatin1String(icon);
  }
  folders["/"] = QStringLiteral("drive-harddisk");
  return folders;
}

} // namespace tavrel
