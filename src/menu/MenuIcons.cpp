#include "menu/MenuIcons.h"

#include "base/Format.h"
#include "controller/ProcessState.h"
#include "platform/Images.h"
#include "platform/Platform.h"

namespace tavrel {

namespace {

void loadNatural(std::optional<Image>& image, const char* name) {
  if (!image)
    image = platform().images.named(name);
}

void loadIcon(std::optional<Image>& image, const char* name) {
  if (image)
    return;
  loadNatural(image, name);
  if (image)
    image = resized(*std::move(image), menuIconSize);
}

void setFoundIcon(MenuItem& item, std::optional<Image> icon, const std::optional<Image>& badge) {
  if (icon) {
    item.image = badged(resized(*std::move(icon), menuIconSize), badge);
    return;
  }
  item.title = filled("?? %@", item.title);
  item.enabled = false;
}

} // namespace

void loadMenuImages(MenuImages& images) {
  loadIcon(images.servicesIcon, "servicesIcon");
  loadIcon(images.urlIcon, "urlIcon");
  loadIcon(images.prefIcon, "prefIcon");
  loadIcon(images.addToTVRMIcon, "AddToTVRM");
  loadIcon(serverIcon, "serverIcon");
  loadIcon(blankIcon, "blankIcon");
  loadNatural(images.service_mark_image, "services_badge");
  loadNatural(images.move_badge_image, "move_badge");
}

void releaseSharedIcons() {
  serverIcon.reset();
  blankIcon.reset();
}

Image badged(Image image, const std::optional<Image>& badge) {
  return badge ? withBadge(std::move(image), *badge) : image;
}

void setMenuItemIconWithBadge(MenuItem& item, const std::optional<std::string>& path,
                              const std::optional<Image>& badge) {
  if (showIcon)
    setFoundIcon(item, path ? platform().images.iconForFile(*path) : std::nullopt, badge);
}

void setMenuItemIcon(MenuItem& item, const std::optional<std::string>& path) {
  setMenuItemIconWithBadge(item, path, std::nullopt);
}

void setListedFileIcon(MenuItem& item, const std::string& path, FileKind kind,
                       const std::optional<Image>& badge) {
  if (showIcon)
    setFoundIcon(item, platform().images.iconForListedFile(path, kind), badge);
}

} // namespace tavrel
