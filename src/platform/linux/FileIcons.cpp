#include "platform/linux/FileIcons.h"

#include "platform/linux/ImageContents.h"

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
  if (!folders_)
    folders_ = specialFolders();
  const IconChoice choice = chooseIcon(path, *folders_);
  if (!choice.picture.empty())
    if (auto picture = imageFromFile(choice.picture))
      return *picture;
  const QIcon icon = firstInTheme(choice.themeNames);
  return icon.isNull() ? generic(choice.generic) : imageFromIcon(icon, menuIconSize);
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
