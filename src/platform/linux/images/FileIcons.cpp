#include "platform/linux/images/FileIcons.h"

#include "platform/linux/files/MountHealth.h"
#include "platform/linux/images/ImageContents.h"

#include <QIcon>
#include <QLoggingCategory>

namespace tavrel {

namespace {
Q_LOGGING_CATEGORY(imagesLog, "tavrel.images")

QIcon firstInTheme(const QStringList& names) {
  for (const QString& name : names)
    if (const QIcon icon = QIcon::fromTheme(name); !icon.isNull())
      return icon;
  return {};
}

} // namespace

Image FileIcons::find(const std::string& path) {
  const auto question = [path, folders = folders()] { return readFileIconFacts(path, *folders); };
  return imageFor(askWithTimeout(path, FinalLink::follow, FileIconFacts{}, question));
}

void FileIcons::request(const std::string& path, std::function<void(Image)> found,
                        std::function<void()> dropped) {
  lookups_.request(
      path, folders(),
      [this, found = std::move(found)](const FileIconFacts& facts) { found(imageFor(facts)); },
      std::move(dropped));
}

IconLookups::Folders FileIcons::folders() {
  if (!folders_)
    folders_ = std::make_shared<const SpecialFolderIcons>(specialFolderIcons());
  return folders_;
}

Image FileIcons::imageFor(const FileIconFacts& facts) {
  if (facts.picture)
    if (auto picture = imageFromData(QByteArray::fromStdString(*facts.picture)))
      return *picture;
  const QIcon icon = firstInTheme(facts.choice.themeNames);
  return icon.isNull() ? generic(facts.choice.generic) : imageFromIcon(icon, menuIconSize);
}

Image FileIcons::generic(GenericIcon icon) {
  if (const auto known = generic_.find(icon); known != generic_.end())
    return known->second;
  const char* name = icon == GenericIcon::folder        ? "/genericFolder.svg"
                     : icon == GenericIcon::application ? "/genericApplication.svg"
                                                        : "/genericFile.svg";
  const auto image = imageFromFile(resourceFolder_ + name);
  if (!image)
    qCWarning(imagesLog, "no picture %s%s: is the program installed whole?",
              resourceFolder_.c_str(), name);
  return generic_[icon] = image.value_or(Image{});
}

} // namespace tavrel
