#include "platform/linux/images/IconChoice.h"

#include "platform/linux/files/FileWithTimeout.h"
#include "platform/linux/files/ItemKind.h"
#include "platform/linux/files/LinkEntry.h"
#include "platform/linux/system/BoundedFile.h"

#include <QDir>
#include <QFileInfo>
#include <QMimeDatabase>

#include <sys/stat.h>

namespace tavrel {

namespace {
constexpr std::size_t sniffedBytes = 4096;
constexpr std::size_t largestPicture = std::size_t{16} << 20; // bytes

QString pathText(const std::string& path) {
  return QFile::decodeName(path.c_str());
}

/// The value of an Icon key: the path of an image file, or a name in the theme, perhaps with an
/// extension that does not belong to it.
void addIconKey(IconChoice& choice, const std::string& icon) {
  if (icon.starts_with('/')) {
    choice.picture = icon;
    return;
  }
  QString name = QString::fromStdString(icon);
  for (const char* extension : {".png", ".svg", ".xpm"})
    if (name.endsWith(QLatin1String(extension)))
      name.chop(4);
  if (!name.isEmpty())
    choice.themeNames.prepend(name);
}

IconChoice choiceForEntry(const std::string& path, const SpecialFolderIcons& folders) {
  const auto entry = loadEntryWithTimeout(path);
  const bool isApplication = entry && entry->type() == "Application";
  const auto target = entry ? linkTarget(*entry) : std::nullopt;
  IconChoice choice;
  if (target && !hasEntryEnding(*target))
    choice = chooseIcon(*target, folders);
  else if (isApplication)
    choice = {{}, {QStringLiteral("application-x-executable")}, GenericIcon::application};
  if (entry)
    addIconKey(choice, entry->icon(messagesLocale()));
  return choice;
}

/// The picture that the desktop entry at the top of an AppDir names, when it is in the AppDir.
std::string pictureNamedInside(const QDir& bundle) {
  const QStringList entries = bundle.entryList({QStringLiteral("*.desktop")}, QDir::Files);
  const auto entry =
      entries.isEmpty()
          ? std::nullopt
          : loadEntryWithTimeout(QFile::encodeName(bundle.filePath(entries.front())).toStdString());
  const QString name = entry ? QString::fromStdString(entry->icon()) : QString();
  for (const char* extension : {".svg", ".png", ".xpm"})
    if (!name.isEmpty() && bundle.exists(name + QLatin1String(extension)))
      return QFile::encodeName(bundle.filePath(name + QLatin1String(extension))).toStdString();
  return {};
}

/// The icon inside a bundle: .DirIcon or the one named by the desktop entry in an AppDir, one that
/// has the name of the bundle in others.
std::string pictureInside(const std::string& path) {
  const QDir bundle(pathText(path));
  const QString name = QFileInfo(bundle.path()).completeBaseName();
  for (const QString& inside :
       {QStringLiteral(".DirIcon"), QStringLiteral("Contents/Resources/%1.png").arg(name),
        QStringLiteral("Resources/%1.png").arg(name)})
    if (bundle.exists(inside))
      return QFile::encodeName(bundle.filePath(inside)).toStdString();
  return pictureNamedInside(bundle);
}

IconChoice choiceForBundle(const std::string& path, ItemKind kind) {
  if (kind == ItemKind::package)
    return {{}, {QStringLiteral("package-x-generic")}, GenericIcon::file};
  return {
      pictureInside(path), {QStringLiteral("application-x-executable")}, GenericIcon::application};
}

IconChoice choiceForFolder(const std::string& path, const SpecialFolderIcons& folders) {
  IconChoice choice{
      {}, {QStringLiteral("folder"), QStringLiteral("inode-directory")}, GenericIcon::folder};
  if (const auto special = folders.find(path); special != folders.end())
    choice.themeNames.prepend(special->second);
  if (const auto entry = loadEntryWithTimeout(path + "/.directory"))
    addIconKey(choice, entry->icon());
  return choice;
}

QMimeType mimeType(const std::string& path, const FileStatus& status) {
  const QMimeDatabase database;
  const QList<QMimeType> named = database.mimeTypesForFileName(pathText(path));
  if (!named.isEmpty() || status.size == 0)
    return named.value(0, database.mimeTypeForName(QStringLiteral("text/plain")));
  const auto start = readStart(path, sniffedBytes);
  return database.mimeTypeForData(QByteArray::fromStdString(start.value_or(std::string())));
}

IconChoice choiceForFile(const std::string& path, const FileStatus& status) {
  if (!S_ISREG(status.mode))
    return {};
  const QMimeType type = mimeType(path, status);
  IconChoice choice{{}, {type.iconName(), type.genericIconName()}, GenericIcon::file};
  if (type.inherits(QStringLiteral("text/plain")))
    choice.themeNames += QStringLiteral("text-x-generic");
  return choice;
}

IconChoice choiceForProgram(const std::string& path, const FileStatus& status) {
  IconChoice choice = choiceForFile(path, status);
  choice.themeNames += QStringLiteral("application-x-executable");
  choice.generic = GenericIcon::application;
  return choice;
}

} // namespace

IconChoice chooseIcon(const std::string& path, const SpecialFolderIcons& folders) {
  const auto status = fileStatus(path, FinalLink::follow);
  if (!status)
    return {};
  if (S_ISREG(status->mode) && hasEntryEnding(path))
    return choiceForEntry(path, folders);
  const ItemKind kind = itemKind(path, *status);
  switch (kind) {
  case ItemKind::folder:
    return choiceForFolder(path, folders);
  case ItemKind::package:
  case ItemKind::applicationBundle:
    return choiceForBundle(path, kind);
  case ItemKind::program:
    return choiceForProgram(path, *status);
  default:
    return choiceForFile(path, *status);
  }
}

FileIconFacts readFileIconFacts(const std::string& path, const SpecialFolderIcons& folders) {
  FileIconFacts facts{chooseIcon(path, folders), std::nullopt};
  if (!facts.choice.picture.empty())
    facts.picture = readFileWithTimeout(facts.choice.picture, largestPicture);
  return facts;
}

} // namespace tavrel
